#include "ImportCheck.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <random>

namespace tintwick {

namespace {

/// Changes, removes or doubles some bytes.
class Mutator final
{
public:
    QByteArray mutated(QByteArray bytes)
    {
        for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
            change(bytes);
        }
        return bytes;
    }

private:
    std::size_t below(qsizetype bound) { return m_random() % static_cast<std::size_t>(bound); }

    void change(QByteArray& bytes)
    {
        const auto at = static_cast<qsizetype>(below(bytes.size() + 1));
        const qsizetype length = std::min<qsizetype>(static_cast<qsizetype>(below(16)), bytes.size() - at);
        switch (below(4)) {
        case 0:
            if (at < bytes.size()) {
                bytes[at] = static_cast<char>(below(256));
            }
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, bytes.sliced(at, length));
            break;
        default:
            bytes.replace(at, length, QByteArray(static_cast<qsizetype>(below(8)), '\xFF'));
            break;
        }
    }

    std::mt19937 m_random{20250314};
};

} // namespace

class ImportMutationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theCorpusIsAccepted();
    void mutatedFilesAreAcceptedOrRefused();

private:
    QList<QByteArray> m_corpus;
};

void ImportMutationTest::initTestCase()
{
    const QDir folder(QStringLiteral(TINTWICK_FUZZ_CORPUS "/import"));
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_corpus += file.readAll();
    }
}

void ImportMutationTest::theCorpusIsAccepted()
{
    QCOMPARE(m_corpus.size(), 5);
    QVERIFY(std::ranges::all_of(m_corpus, test::checkImport));
}

void ImportMutationTest::mutatedFilesAreAcceptedOrRefused()
{
    Mutator mutator;
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 4000; ++round) {
        for (const QByteArray& bytes : m_corpus) {
            ++(test::checkImport(mutator.mutated(bytes)) ? accepted : refused);
        }
    }
    QVERIFY(accepted > 500);
    QVERIFY(refused > 5000);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ImportMutationTest)
#include "ImportMutationTest.moc"
