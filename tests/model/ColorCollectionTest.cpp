#include "ColorCollection.h"

#include <QTest>

namespace tintwick {

class ColorCollectionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewCollectionIsEmpty();
    void membersFollowTheOrderOfTheCollection();
    void membersMissingFromTheHistoryAreOmitted();
    void collectionsAreEqualWhenAllFieldsAre();
};

void ColorCollectionTest::aNewCollectionIsEmpty()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const ColorCollection collection = ColorCollection::create(QStringLiteral("  Brand "));
    QVERIFY(!collection.id.isNull());
    QVERIFY(collection.id != ColorCollection::create(QString()).id);
    QCOMPARE(collection.name, QStringLiteral("  Brand "));
    QVERIFY(collection.colorIds.isEmpty());
    QVERIFY(collection.createdAt >= before);
    QCOMPARE(collection.icon, QStringLiteral("paintpalette.fill"));
}

void ColorCollectionTest::membersFollowTheOrderOfTheCollection()
{
    const CapturedColor red = CapturedColor::capture(1, 0, 0, 1);
    const CapturedColor green = CapturedColor::capture(0, 1, 0, 1);
    const CapturedColor blue = CapturedColor::capture(0, 0, 1, 1);
    ColorCollection collection = ColorCollection::create(QStringLiteral("Light"));
    collection.colorIds = {blue.id, red.id};
    QCOMPARE(collection.colors({red, green, blue}), (QList<CapturedColor>{blue, red}));
}

void ColorCollectionTest::membersMissingFromTheHistoryAreOmitted()
{
    const CapturedColor red = CapturedColor::capture(1, 0, 0, 1);
    ColorCollection collection = ColorCollection::create(QStringLiteral("Old"));
    collection.colorIds = {QUuid::createUuid(), red.id, QUuid::createUuid()};
    QCOMPARE(collection.colors({red}), QList<CapturedColor>{red});
    QVERIFY(collection.colors({}).isEmpty());
}

void ColorCollectionTest::collectionsAreEqualWhenAllFieldsAre()
{
    const ColorCollection collection = ColorCollection::create(QStringLiteral("Brand"));
    const auto differs = [&](auto change) {
        ColorCollection changed = collection;
        change(changed);
        return changed != collection;
    };
    QVERIFY(!differs([](ColorCollection&) {}));
    QVERIFY(differs([](ColorCollection& c) { c.id = QUuid::createUuid(); }));
    QVERIFY(differs([](ColorCollection& c) { c.name += u'x'; }));
    QVERIFY(differs([](ColorCollection& c) { c.colorIds.append(QUuid::createUuid()); }));
    QVERIFY(differs([](ColorCollection& c) { c.createdAt = c.createdAt.addMSecs(1); }));
    QVERIFY(differs([](ColorCollection& c) { c.icon.clear(); }));
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::ColorCollectionTest)
#include "ColorCollectionTest.moc"
