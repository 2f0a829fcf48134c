#include "CollectionIcon.h"
#include "ColorCollection.h"

#include <QTest>

namespace tintwick {

using namespace Qt::StringLiterals;

class CollectionIconTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storedTextHasASymbol_data();
    void storedTextHasASymbol();
    void aNewCollectionHasASymbol();
};

void CollectionIconTest::storedTextHasASymbol_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("symbol");
    QTest::newRow("the one stored text") << u"paintpalette.fill"_s << u"palette-filled"_s;
    QTest::newRow("the name of a symbol") << u"palette-filled"_s << QString();
    QTest::newRow("unknown text") << u"star"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void CollectionIconTest::storedTextHasASymbol()
{
    QFETCH(const QString, stored);
    QTEST(collectionSymbol(stored), "symbol");
}

void CollectionIconTest::aNewCollectionHasASymbol()
{
    QCOMPARE(collectionSymbol(ColorCollection::create(u"Sea"_s).icon), u"palette-filled"_s);
}

} // namespace tintwick

QTEST_GUILESS_MAIN(tintwick::CollectionIconTest)

#include "CollectionIconTest.moc"
