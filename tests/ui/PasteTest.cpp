#include "TextField.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"

#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>

using namespace tintwick;
using namespace tintwick::test;

namespace {

using namespace Qt::StringLiterals;

class PasteFixture : public PanelFixture
{
public:
    /// Presses Ctrl+V where the focus is.
    void paste() const
    {
        QWidget* focused = view->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : view.get(), Qt::Key_V, Qt::ControlModifier);
        settle();
    }

    void paste(const QString& text) const
    {
        QGuiApplication::clipboard()->setText(text);
        paste();
    }

    /// "#FF0000 Red, #0000FF Blue"
    [[nodiscard]] QString history() const
    {
        QStringList texts;
        for (const CapturedColor& color : state.history()) {
            texts += color.hex6() + u' ' + color.customName.value_or(QString());
        }
        return texts.join(u", "_s);
    }

    [[nodiscard]] QString said() const { return visibleTexts(*view->findChild<ActionPill*>()).join(u' '); }

    [[nodiscard]] bool shows(const QString& sentence) const
    {
        const QList<QLabel*> labels = view->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&sentence](const QLabel* label) {
            return label->isVisible() && label->text() == sentence;
        });
    }
};

} // namespace

class PasteTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pastedColorsComeFirst();
    void aPasteIsTakenBack();
    void mappedColorsAreMentioned_data();
    void mappedColorsAreMentioned();
    void theNextChangeEndsTheRemark();
    void aLongListIsTakenUpToTheLimit();
    void aTextWithoutColorsChangesNothing();
    void aTextFieldKeepsItsPaste();
    void aFileBecomesAPalette();
    void aPictureBecomesAPalette();
};

void PasteTest::pastedColorsComeFirst()
{
    PasteFixture fixture;
    fixture.capture(0x00FF00);
    fixture.paste(u"#FF0000\nSky: rgb(56 189 248)\nblue-500"_s);
    QCOMPARE(fixture.history(), u"#FF0000 Red, #38BDF8 Sky, #3B82F6 Royal Blue, #00FF00 Lime"_s);
    QCOMPARE(fixture.said(), u"Added 3 colors – Undo"_s);
    fixture.paste(u"dodgerblue"_s);
    QCOMPARE(fixture.said(), u"Added Dodger Blue – Undo"_s);
}

void PasteTest::aPasteIsTakenBack()
{
    PasteFixture fixture;
    fixture.capture(0x00FF00);
    fixture.paste(u"red, blue"_s);
    button(*fixture.view, u"Undo"_s)->click();
    QCOMPARE(fixture.history(), u"#00FF00 Lime"_s);
}

void PasteTest::mappedColorsAreMentioned_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("one") << u"color(display-p3 0 1 0)"_s << u"The color was outside sRGB and is mapped"_s;
    QTest::newRow("one of two") << u"red\ncolor(display-p3 0 1 0)"_s << u"1 was outside sRGB and is mapped"_s;
    QTest::newRow("two of three") << u"color(display-p3 0 1 0)\nred\noklch(0.7 0.4 150)"_s
                                  << u"2 were outside sRGB and are mapped"_s;
}

void PasteTest::mappedColorsAreMentioned()
{
    QFETCH(const QString, text);
    QFETCH(const QString, sentence);
    PasteFixture fixture;
    fixture.paste(text);
    QVERIFY(fixture.shows(sentence));
}

void PasteTest::theNextChangeEndsTheRemark()
{
    PasteFixture fixture;
    fixture.paste(u"color(display-p3 0 1 0)"_s);
    fixture.state.undo();
    settle();
    QVERIFY(!fixture.shows(u"The color was outside sRGB and is mapped"_s));
}

void PasteTest::aLongListIsTakenUpToTheLimit()
{
    PasteFixture fixture;
    QString text;
    for (int i = 0; i < 150; ++i) {
        text += u"#0000%1\n"_s.arg(i, 2, 16, QLatin1Char('0'));
    }
    fixture.paste(text);
    QCOMPARE(fixture.state.history().size(), 100);
    QCOMPARE(fixture.state.history().first().hex6(), u"#000000"_s);
    QCOMPARE(fixture.state.history().last().hex6(), u"#000063"_s);
    QVERIFY(fixture.shows(u"The first 100 colors of the text were taken"_s));
}

void PasteTest::aTextWithoutColorsChangesNothing()
{
    PasteFixture fixture;
    fixture.capture(0x00FF00);
    fixture.paste(u"See you tomorrow"_s);
    QCOMPARE(fixture.history(), u"#00FF00 Lime"_s);
    QCOMPARE(fixture.said(), u"There are no colors on the clipboard"_s);
}

void PasteTest::aTextFieldKeepsItsPaste()
{
    PasteFixture fixture;
    button(*fixture.view, u"Create your first palette"_s)->click();
    settle();
    fixture.paste(u"red"_s);
    QCOMPARE(qobject_cast<QLineEdit*>(fixture.view->focusWidget())->text(), u"red"_s);
    QVERIFY(fixture.state.history().isEmpty());
    button(*fixture.view, u"Cancel"_s)->setFocus();
    fixture.paste();
    QVERIFY(fixture.state.history().isEmpty());
}

void PasteTest::aFileBecomesAPalette()
{
    PasteFixture fixture;
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"Brand.css"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("--sky: #38BDF8");
    file.close();
    auto* content = new QMimeData;
    content->setUrls({QUrl::fromLocalFile(file.fileName())});
    content->setText(u"red"_s);
    QGuiApplication::clipboard()->setMimeData(content);
    fixture.paste();
    QVERIFY(fixture.state.history().isEmpty());
    QCOMPARE(fixture.state.collections().first().name, u"Brand"_s);
}

void PasteTest::aPictureBecomesAPalette()
{
    PasteFixture fixture;
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(QColor(220, 20, 60));
    QGuiApplication::clipboard()->setImage(picture);
    fixture.paste();
    QCOMPARE(fixture.state.collections().size(), 1);
    QCOMPARE(fixture.state.colorsOf(fixture.state.collections().first()).first().hex6(), u"#DC143C"_s);
    QCOMPARE(fixture.said(), u"Imported Picture – Undo"_s);
}

int main(int argc, char** argv)
{
    return runWithOwnHome<PasteTest>(argc, argv);
}

#include "PasteTest.moc"
