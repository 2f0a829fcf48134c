#include "PayloadCheck.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <array>
#include <random>

namespace tintwick {

namespace {

/// Mutates a text in a few places: flips bits, changes bytes, removes, duplicates or moves parts, inserts JSON tokens.
class Mutator final
{
public:
    QByteArray mutated(QByteArray text)
    {
        for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
            change(text);
        }
        return text;
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }

    qsizetype position(const QByteArray& text)
    {
        return static_cast<qsizetype>(below(static_cast<std::size_t>(text.size()) + 1));
    }

    void change(QByteArray& text)
    {
        static const std::array<QByteArray, 20> pieces{
            "{",
            "}",
            "[",
            "]",
            "\"",
            ",",
            ":",
            "null",
            "true",
            "-0",
            "1e308",
            "1e-400",
            "1e400",
            "\\u0000",
            "\\ud8",
            "\xEF\xBF\xBE",
            "\xF0\x9F",
            "\"red\":",
            "18446744073709551616",
            QByteArray(100, '['),
        };
        const qsizetype at = position(text);
        const qsizetype length = std::min<qsizetype>(static_cast<qsizetype>(below(32)), text.size() - at);
        switch (below(6)) {
        case 0:
            if (at < text.size()) {
                text[at] = static_cast<char>(text[at] ^ (1 << below(8)));
            }
            break;
        case 1:
            if (at < text.size()) {
                text[at] = static_cast<char>(below(256));
            }
            break;
        case 2:
            text.remove(at, length);
            break;
        case 3:
            text.insert(position(text), text.sliced(at, length));
            break;
        case 4:
            text.insert(at, pieces.at(below(pieces.size())));
            break;
        default:
            text.replace(at, length, pieces.at(below(pieces.size())));
            break;
        }
    }

    std::mt19937 m_random{20250314};
};

} // namespace

class PayloadMutationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theCorpusHasFilesOfBothKinds();
    void mutatedFilesAreAcceptedOrRefused();

private:
    QList<QByteArray> m_corpus;
};

void PayloadMutationTest::initTestCase()
{
    const QDir folder(QStringLiteral(TINTWICK_FUZZ_CORPUS "/storage"));
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_corpus += file.readAll();
    }
}

void PayloadMutationTest::theCorpusHasFilesOfBothKinds()
{
    qsizetype accepted = 0;
    for (const QByteArray& text : m_corpus) {
        accepted += test::checkPayload(text) ? 1 : 0;
    }
    QVERIFY(accepted >= 2);
    QVERIFY(accepted < m_corpus.size());
}

void PayloadMutationTest::mutatedFilesAreAcceptedOrRefused()
{
    Mutator mutator;
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 2000; ++round) {
        for (const QByteArray& text : m_corpus) {
            ++(test::checkPayload(mutator.mutated(text)) ? accepted : refused);
        }
    }
    QVERIFY(accepted > 100);
    QVERIFY(refused > 1000);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PayloadMutationTest)
#include "PayloadMutationTest.moc"
