#include "PayloadMerge.h"

#include <QTest>

namespace tintwick {

namespace {

QUuid idOf(char letter)
{
    return QUuid(static_cast<uint>(letter), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

/// "a b=Sky" is a colour a without a name and a colour b with the name Sky.
QList<CapturedColor> colors(const QString& text)
{
    QList<CapturedColor> list;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        CapturedColor color;
        color.id = idOf(word[0].toLatin1());
        color.customName = word.size() > 1 ? std::optional(word.sliced(2)) : std::nullopt;
        list.append(color);
    }
    return list;
}

/// "p=abc q" is a collection p with the members a, b and c and an empty collection q; "p:Name=abc" has a name too, and
/// "p:Name:blue=abc" the colour of its icon.
QList<ColorCollection> collections(const QString& text)
{
    QList<ColorCollection> list;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        ColorCollection collection;
        collection.id = idOf(word[0].toLatin1());
        collection.name = word.section(u'=', 0, 0).section(u':', 1, 1);
        collection.iconColor = word.section(u'=', 0, 0).section(u':', 2);
        for (const QChar member : word.section(u'=', 1)) {
            collection.colorIds.append(idOf(member.toLatin1()));
        }
        list.append(collection);
    }
    return list;
}

/// "a b | p=abc | c": a history, the collections and the kept colours.
Payload payload(const QString& text)
{
    const QStringList parts = text.split(u'|');
    return {colors(parts[0]), collections(parts[1]), ColorFormat::Hex6, colors(parts[2])};
}

/// The state that both programs have read, what each made of it, and the merged state.
void addColumns()
{
    for (const char* state : {"before", "ours", "theirs", "both"}) {
        QTest::addColumn<QString>(state);
    }
}

void row(const char* name, const char* before, const char* ours, const char* theirs, const char* both)
{
    QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(ours)
                        << QString::fromLatin1(theirs) << QString::fromLatin1(both);
}

} // namespace

class PayloadMergeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesOfTheHistoryJoin_data();
    void changesOfTheHistoryJoin();
    void changesOfCollectionsJoin_data();
    void changesOfCollectionsJoin();
    void aColorThatLeavesTheHistoryIsKeptByItsCollections_data();
    void aColorThatLeavesTheHistoryIsKeptByItsCollections();
    void theChangedFormatCounts_data();
    void theChangedFormatCounts();
};

void PayloadMergeTest::changesOfTheHistoryJoin_data()
{
    addColumns();
    row("nothing", "a b", "a b", "a b", "a b");
    row("both added", "a", "b a", "c a", "b c a");
    row("both added to nothing", "", "b", "c", "b c");
    row("both added the same", "", "a=Sky", "a", "a=Sky");
    row("we removed", "a b c", "a c", "a b c", "a c");
    row("they removed", "a b c", "a b c", "a c", "a c");
    row("both removed the same", "a b", "a", "a", "a");
    row("we removed and they added", "a b", "b", "c a b", "c b");
    row("we cleared and they added", "a b", "", "c a b", "c");
    row("they cleared and we added", "a b", "c a b", "", "c");
    row("we renamed", "a b", "a=Sky b", "c a b", "c a=Sky b");
    row("they renamed", "a b", "c a b", "a=Sky b", "c a=Sky b");
    row("both renamed", "a", "a=Sky", "a=Sea", "a=Sky");
    row("we removed what they renamed", "a b", "b", "a=Sky b", "a=Sky b");
    row("they removed what we renamed", "a b", "a=Sky b", "b", "a=Sky b");
    row("they sorted", "a b c", "d a b c", "c b a", "d c b a");
    row("one id twice", "a a b", "a a b", "c a a b", "c a a b");
}

void PayloadMergeTest::changesOfTheHistoryJoin()
{
    QFETCH(QString, before);
    QFETCH(QString, ours);
    QFETCH(QString, theirs);
    QFETCH(QString, both);
    const Payload result = merged({colors(before), {}, {}}, {colors(ours), {}, {}}, {colors(theirs), {}, {}});
    QCOMPARE(result.history, colors(both));
}

void PayloadMergeTest::changesOfCollectionsJoin_data()
{
    addColumns();
    row("both added", "p", "p q", "p r", "p r q");
    row("we removed", "p q", "q", "p q r", "q r");
    row("they removed", "p q", "p q r", "q", "q r");
    row("both added members", "p=ab", "p=abc", "p=abd", "p=abdc");
    row("we added and they removed a member", "p=ab", "p=abc", "p=b", "p=bc");
    row("we removed and they added a member", "p=ab", "p=b", "p=abc", "p=bc");
    row("we sorted", "p=abc", "p=cab", "p=abc q", "p=cab q");
    row("they sorted", "p=abc", "p=abc q", "p=cab", "p=cab q");
    row("we sorted and they added a member", "p=abc", "p=cab", "p=abcd", "p=abcd");
    row("they named and we added a member", "p=a", "p=ab", "p:Sea=a", "p:Sea=ab");
    row("they named and we colored", "p=a", "p::blue=a", "p:Sea=a", "p:Sea:blue=a");
    row("they colored and we added a member", "p=a", "p=ab", "p::blue=a", "p::blue=ab");
    row("both colored", "p=a", "p::blue=a", "p::pink=a", "p::blue=a");
    row("they removed what we changed", "p=a q", "p=ab q", "q", "q p=ab");
    row("we removed what they changed", "p=a q", "q", "p=ab q", "p=ab q");
}

void PayloadMergeTest::changesOfCollectionsJoin()
{
    QFETCH(QString, before);
    QFETCH(QString, ours);
    QFETCH(QString, theirs);
    QFETCH(QString, both);
    const Payload result =
        merged({{}, collections(before), {}}, {{}, collections(ours), {}}, {{}, collections(theirs), {}});
    QCOMPARE(result.collections, collections(both));
}

void PayloadMergeTest::aColorThatLeavesTheHistoryIsKeptByItsCollections_data()
{
    addColumns();
    row("it left ours", "a | p=a |", "b | p=a | a", "c a | p=a |", "b c | p=a | a");
    row("it left theirs", "a | p=a |", "b a | p=a |", "c | p=a | a", "b c | p=a | a");
    row("it left theirs, written by a version that keeps none", "a | p=a |", "b a | p=a |", "c | p=a |",
        "b c | p=a | a");
    row("that version forgot it", "| p=a | a", "b | p=a | a", "c | p=a |", "b c | p=a | a");
    row("it left ours and they renamed it", "a | p=a |", "b | p=a | a", "a=Sky | p=a |", "b a=Sky | p=a |");
    row("they renamed a kept one", "| p=a | a", "b | p=a | a", "| p=a | a=Sky", "b | p=a | a=Sky");
    row("we renamed a kept one", "| p=a | a", "| p=a | a=Sky", "b | p=a | a", "b | p=a | a=Sky");
    row("both keep another one", "a b | p=a q=b |", "c a | p=a q=b | b", "d b | p=a q=b | a",
        "c d | p=a q=b | a b");
    row("we deleted it", "| p=a | a", "| p= |", "c | p=a | a", "c | p= |");
    row("they deleted it", "| p=a | a", "c | p=a | a", "| p= |", "c | p= |");
    row("we deleted the collection", "| p=a | a", "| |", "c | p=a | a", "c | |");
    row("we put it into another collection", "| p=a q= | a", "| p=a q=a | a", "| q= |", "| q=a | a");
    row("its id is unknown", "| p=a |", "b | p=a |", "c | p=a |", "b c | p=a |");
}

void PayloadMergeTest::aColorThatLeavesTheHistoryIsKeptByItsCollections()
{
    QFETCH(QString, before);
    QFETCH(QString, ours);
    QFETCH(QString, theirs);
    QFETCH(QString, both);
    const Payload result = merged(payload(before), payload(ours), payload(theirs));
    const Payload expected = payload(both);
    QCOMPARE(result.history, expected.history);
    QCOMPARE(result.collections, expected.collections);
    QCOMPARE(result.keptColors, expected.keptColors);
}

void PayloadMergeTest::theChangedFormatCounts_data()
{
    QTest::addColumn<ColorFormat>("ours");
    QTest::addColumn<ColorFormat>("theirs");
    QTest::addColumn<ColorFormat>("both");
    QTest::newRow("none") << ColorFormat::Hex6 << ColorFormat::Hex6 << ColorFormat::Hex6;
    QTest::newRow("ours") << ColorFormat::Rgb << ColorFormat::Hex6 << ColorFormat::Rgb;
    QTest::newRow("theirs") << ColorFormat::Hex6 << ColorFormat::Hsl << ColorFormat::Hsl;
    QTest::newRow("both") << ColorFormat::Rgb << ColorFormat::Hsl << ColorFormat::Rgb;
}

void PayloadMergeTest::theChangedFormatCounts()
{
    QFETCH(ColorFormat, ours);
    QFETCH(ColorFormat, theirs);
    QFETCH(ColorFormat, both);
    QCOMPARE(merged({{}, {}, ColorFormat::Hex6}, {{}, {}, ours}, {{}, {}, theirs}).defaultFormat, both);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PayloadMergeTest)
#include "PayloadMergeTest.moc"
