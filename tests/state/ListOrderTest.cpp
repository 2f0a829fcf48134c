#include "ListOrder.h"

#include <QTest>

namespace tintwick {

class ListOrderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void movingElements_data();
    void movingElements();
};

void ListOrderTest::movingElements_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QSet<qsizetype>>("positions");
    QTest::addColumn<qsizetype>("destination");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, const char* list, const QSet<qsizetype>& positions,
                        qsizetype destination, const char* result) {
        QTest::newRow(name) << QString::fromLatin1(list) << positions << destination
                            << QString::fromLatin1(result);
    };
    row("one to the front", "abcde", {3}, 0, "dabce");
    row("one to the end", "abcde", {1}, 5, "acdeb");
    row("one downwards lands before the destination", "abcde", {0}, 3, "bcade");
    row("one upwards lands before the destination", "abcde", {4}, 2, "abecd");
    row("before itself", "abcde", {2}, 2, "abcde");
    row("before its successor", "abcde", {2}, 3, "abcde");
    row("several keep their order", "abcde", {4, 1}, 0, "beacd");
    row("several from both sides", "abcdef", {0, 5}, 3, "bcafde");
    row("destination among the moved", "abcde", {1, 2, 4}, 2, "abced");
    row("all", "abc", {0, 1, 2}, 1, "abc");
    row("none", "abc", {}, 1, "abc");
    row("empty list", "", {0}, 0, "");
    row("positions outside are passed over", "abc", {-1, 1, 7}, 0, "bac");
    row("destination beyond the end", "abc", {0}, 9, "bca");
    row("destination before the start", "abc", {2}, -4, "cab");
}

void ListOrderTest::movingElements()
{
    QFETCH(QString, list);
    QFETCH(QSet<qsizetype>, positions);
    QFETCH(qsizetype, destination);
    QFETCH(QString, result);
    const QList<QChar> characters(list.begin(), list.end());
    QString text;
    for (const QChar character : moved(characters, positions, destination)) {
        text += character;
    }
    QCOMPARE(text, result);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ListOrderTest)
#include "ListOrderTest.moc"
