#include "ManPage.h"
#include "ShellCompletions.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Writes the content into a file of the folder; returns its path.
QString written(const QTemporaryDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                    : QString();
}

/// The words that bash offers for a command line whose last word is being typed.
QStringList bashOffers(const QString& script, const QStringList& words)
{
    QStringList arguments{
        u"-c"_s,
        u"source \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _tintwick; "
        u"printf '%s\\n' \"${COMPREPLY[@]}\""_s,
        script};
    QProcess bash;
    bash.start(u"bash"_s, arguments + words);
    bash.waitForFinished();
    return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

class PagesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manPageHasNoWarnings();
    void bashCompletesWords_data();
    void bashCompletesWords();
    void everyShellKnowsEveryCommand();
};

void PagesTest::manPageHasNoWarnings()
{
    const QTemporaryDir folder;
    const QString page = written(folder, u"tintwick.1"_s, manPage(u"1.2.3"_s));
    QProcess man;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"MANWIDTH"_s, u"100"_s);
    man.setProcessEnvironment(environment);
    man.start(u"man"_s, {u"--warnings=all"_s, u"-l"_s, page});
    QVERIFY(man.waitForFinished());
    QCOMPARE(man.exitCode(), 0);
    QCOMPARE(man.readAllStandardError(), QByteArray());
    const QByteArray text = man.readAllStandardOutput();
    for (const char* part : {"tintwick - pick colors from the screen", "Tintwick 1.2.3", "--no-copy",
                             "The command line is wrong.", "tintwick convert [OPTION]... COLOR..."}) {
        QVERIFY2(text.contains(part), part);
    }
}

void PagesTest::bashCompletesWords_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offers");
    QTest::newRow("command") << QStringList{u"tintwick"_s, u"pa"_s}
                             << QStringList{u"palettes"_s, u"palette"_s, u"panel"_s};
    QTest::newRow("option") << QStringList{u"tintwick"_s, u"pick"_s, u"--no"_s}
                            << QStringList{u"--no-copy"_s, u"--no-save"_s};
    QTest::newRow("format") << QStringList{u"tintwick"_s, u"pick"_s, u"--format"_s, u"H"_s}
                            << QStringList{u"HEX"_s, u"HEX+A"_s,     u"HSL"_s,     u"HSLA"_s,
                                           u"HSV"_s, u"HEX-lower"_s, u"HEX-bare"_s};
    QTest::newRow("export type") << QStringList{u"tintwick"_s, u"export"_s, u"c"_s}
                                 << QStringList{u"css"_s, u"css-unique"_s};
    QTest::newRow("free text") << QStringList{u"tintwick"_s, u"pick"_s, u"--count"_s, u""_s} << QStringList();
}

void PagesTest::bashCompletesWords()
{
    QFETCH(QStringList, words);
    const QTemporaryDir folder;
    QTEST(bashOffers(written(folder, u"tintwick.bash"_s, bashCompletion()), words), "offers");
}

void PagesTest::everyShellKnowsEveryCommand()
{
    for (const char* command : {"pick", "history", "palettes", "palette", "export", "import", "convert",
                                "panel", "settings", "quit"}) {
        QVERIFY2(bashCompletion().contains(QByteArray("        ") + command + ") words="), command);
        QVERIFY2(zshCompletion().contains(QByteArray("        ") + command + ") _arguments"), command);
        QVERIFY2(fishCompletion().contains(QByteArray("-n __fish_use_subcommand -a ") + command + " "),
                 command);
    }
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PagesTest)
#include "PagesTest.moc"
