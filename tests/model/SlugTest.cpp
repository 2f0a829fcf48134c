#include "Slug.h"

#include <QTest>

namespace tintwick {

class SlugTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slugOfAText_data();
    void slugOfAText();
};

void SlugTest::slugOfAText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("slug");
    const auto row = [](const char* name, const QString& text, const QString& slug) {
        QTest::newRow(name) << text << slug;
    };
    row("empty", QString(), QString());
    row("words", QStringLiteral("My Palette"), QStringLiteral("my-palette"));
    row("runs are kept", QStringLiteral("Sky  Blue"), QStringLiteral("sky--blue"));
    row("leading blank", QStringLiteral(" Neon!"), QStringLiteral("-neon"));
    row("trailing blank", QStringLiteral("Neon "), QStringLiteral("neon-"));
    row("number sign", QStringLiteral("#1 Reds"), QStringLiteral("1-reds"));
    row("hyphens are kept", QStringLiteral("a--b-"), QStringLiteral("a--b-"));
    row("underscore is removed", QStringLiteral("a_b"), QStringLiteral("ab"));
    row("punctuation only", QStringLiteral("!?.,"), QString());
    row("tab and line feed", QStringLiteral("a\tb\nc"), QStringLiteral("a-b-c"));
    row("carriage return and line feed are two", QStringLiteral("a\r\nb"), QStringLiteral("a--b"));
    row("no-break and ideographic space", QStringLiteral("a\u00A0b\u3000c"), QStringLiteral("a-b-c"));
    row("line separator and next line", QStringLiteral("a\u2028b\u0085c"), QStringLiteral("a-b-c"));
    row("zero-width space is removed", QStringLiteral("a\u200Bb"), QStringLiteral("ab"));
    row("en dash is removed", QStringLiteral("a\u2013b"), QStringLiteral("ab"));
    row("accented letters", QStringLiteral("ÉTÉ Bleu"), QStringLiteral("été-bleu"));
    row("decomposed accent is kept", QStringLiteral("E\u0301te"), QStringLiteral("e\u0301te"));
    row("accent without a letter is removed", QStringLiteral("!\u0301a"), QStringLiteral("a"));
    row("dotted capital i becomes two code points", QStringLiteral("\u0130x"), QStringLiteral("i\u0307x"));
    row("sharp s", QStringLiteral("STRA\u00DFE"), QStringLiteral("stra\u00DFe"));
    row("cyrillic and greek", QStringLiteral("Синий Άλφα"), QStringLiteral("синий-άλφα"));
    row("final sigma", QStringLiteral("ΟΔΟΣ"), QStringLiteral("οδος"));
    row("final sigma of each word", QStringLiteral("ΜΠΛΕ ΟΔΟΣ ΣΑΣ!"), QStringLiteral("μπλε-οδος-σας"));
    row("sigma at the start and within", QStringLiteral("ΣΑΣΑ"), QStringLiteral("σασα"));
    row("sigma alone", QStringLiteral("Σ"), QStringLiteral("σ"));
    row("sigma after a digit", QStringLiteral("1Σ"), QStringLiteral("1σ"));
    row("sigma before an apostrophe and a letter", QStringLiteral("ΑΣ'Α"), QStringLiteral("ασα"));
    row("sigma before an apostrophe", QStringLiteral("ΑΣ' Α"), QStringLiteral("ας-α"));
    row("final sigma with a mark", QStringLiteral("Α\u0301Σ\u0301"), QStringLiteral("α\u0301ς\u0301"));
    row("sigma beside letters beyond the basic plane", QStringLiteral("\U00010400Σ"),
        QStringLiteral("\U00010428ς"));
    row("devanagari keeps its vowel signs", QStringLiteral("हिन्दी"), QStringLiteral("हिन्दी"));
    row("han", QStringLiteral("青 色"), QStringLiteral("青-色"));
    row("superscript, fraction, roman number", QStringLiteral("x² ½ Ⅷ"), QStringLiteral("x²-½-ⅷ"));
    row("arabic digits", QStringLiteral("٣"), QStringLiteral("٣"));
    row("letters beyond the basic plane", QStringLiteral("\U00010400 a"), QStringLiteral("\U00010428-a"));
    row("emoji is removed", QStringLiteral("sun \U0001F31E"), QStringLiteral("sun-"));
    row("joined emoji is removed as a whole", QStringLiteral("a\U0001F468\u200D\U0001F469\u200D\U0001F467b"),
        QStringLiteral("ab"));
    row("flag is removed", QStringLiteral("\U0001F1EA\U0001F1FAx"), QStringLiteral("x"));
    row("lone surrogate is removed", QString(QChar(0xD83D)) + u'a', QStringLiteral("a"));
    row("symbols are removed", QStringLiteral("50% + 1€ = ©"), QStringLiteral("50--1--"));
}

void SlugTest::slugOfAText()
{
    QFETCH(QString, text);
    QFETCH(QString, slug);
    QCOMPARE(slugify(text), slug);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::SlugTest)
#include "SlugTest.moc"
