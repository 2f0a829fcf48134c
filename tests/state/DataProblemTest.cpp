#include "DataProblem.h"

#include <QTest>

#include <cerrno>

namespace tintwick {

class DataProblemTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aProblemIsToldInOneSentence_data();
    void aProblemIsToldInOneSentence();
};

void DataProblemTest::aProblemIsToldInOneSentence_data()
{
    using Kind = DataProblem::Kind;
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* name, Kind kind, int error, const char* sentence) {
        QTest::newRow(name) << kind << error << QString::fromLatin1(sentence);
    };
    row("no problem", Kind::None, 0, "");
    row("no room", Kind::CannotWrite, ENOSPC, "Not saved: the disk is full");
    row("the quota is used up", Kind::CannotWrite, EDQUOT, "Not saved: the disk is full");
    row("read-only file system", Kind::CannotWrite, EROFS, "Not saved: the folder is read-only");
    row("no permission", Kind::CannotWrite, EACCES, "Not saved: the folder is read-only");
    row("immutable file", Kind::CannotWrite, EPERM, "Not saved: the folder is read-only");
    row("disk error", Kind::CannotWrite, EIO, "Not saved: the disk reports an error");
    row("too large", Kind::CannotWrite, EFBIG, "Not saved: the data is too large");
    row("a pipe in the way of writing", Kind::CannotWrite, EISDIR, "Not saved: data.json is not a file");
    row("a folder in the way of reading", Kind::CannotRead, EISDIR, "Not saved: data.json is not a file");
    row("a file instead of the folder", Kind::CannotWrite, ENOTDIR,
        "Not saved: a file has the name of the data folder");
    row("another reason", Kind::CannotWrite, EMFILE, "Not saved: Too many open files");
    row("not readable", Kind::CannotRead, EACCES,
        "Nothing is saved, because the stored colors cannot be read: Permission denied");
    row("disk error while reading", Kind::CannotRead, EIO,
        "Nothing is saved, because the stored colors cannot be read: Input/output error");
}

void DataProblemTest::aProblemIsToldInOneSentence()
{
    QFETCH(const DataProblem::Kind, kind);
    QFETCH(const int, error);
    QFETCH(const QString, sentence);
    QCOMPARE((DataProblem{kind, error}.sentence()), sentence);
    QCOMPARE((DataProblem{kind, error}.exists()), !sentence.isEmpty());
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::DataProblemTest)
#include "DataProblemTest.moc"
