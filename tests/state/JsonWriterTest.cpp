#include "JsonWriter.h"

#include <QTest>

namespace tintwick {

class JsonWriterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesStandOnLinesOfTheirDepth();
    void whatIsEmptyStaysOnItsLine();
    void textsAreEscaped_data();
    void textsAreEscaped();
    void numbersHaveAFractionOrAnExponent_data();
    void numbersHaveAFractionOrAnExponent();
};

void JsonWriterTest::valuesStandOnLinesOfTheirDepth()
{
    JsonWriter writer;
    writer.beginArray();
    writer.number(1);
    writer.beginObject();
    writer.key("a");
    writer.beginArray();
    writer.plainString("b");
    writer.string(QStringLiteral("c"));
    writer.endArray();
    writer.key("d");
    writer.number(2);
    writer.endObject();
    writer.beginArray();
    writer.number(3);
    writer.endArray();
    writer.endArray();
    QCOMPARE(writer.text(), QByteArray("[\n"
                                       "  1.0,\n"
                                       "  {\n"
                                       "    \"a\": [\n"
                                       "      \"b\",\n"
                                       "      \"c\"\n"
                                       "    ],\n"
                                       "    \"d\": 2.0\n"
                                       "  },\n"
                                       "  [\n"
                                       "    3.0\n"
                                       "  ]\n"
                                       "]"));
}

void JsonWriterTest::whatIsEmptyStaysOnItsLine()
{
    JsonWriter writer;
    writer.beginObject();
    writer.key("a");
    writer.beginObject();
    writer.endObject();
    writer.key("b");
    writer.beginArray();
    writer.endArray();
    writer.endObject();
    QCOMPARE(writer.text(), QByteArray("{\n  \"a\": {},\n  \"b\": []\n}"));
}

void JsonWriterTest::textsAreEscaped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("empty") << QStringLiteral("") << QByteArray("\"\"");
    QTest::newRow("named escapes") << QStringLiteral("\"\\/\b\f\n\r\t")
                                   << QByteArray(R"(~\~\\/\b\f\n\r\t~)").replace('~', '"');
    QTest::newRow("control characters")
        << QStringLiteral("a\u0001\u001F\u007F") << QByteArray("\"a\\u0001\\u001f\x7F\"");
    QTest::newRow("beyond the basic plane")
        << QStringLiteral("\U0001F3A8") << QByteArray("\"\xF0\x9F\x8E\xA8\"");
    QTest::newRow("half a character") << QString(QChar(0xD83D)) << QByteArray("\"?\"");
}

void JsonWriterTest::textsAreEscaped()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, json);
    JsonWriter writer;
    writer.string(text);
    QCOMPARE(writer.text(), json);
}

void JsonWriterTest::numbersHaveAFractionOrAnExponent_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("zero") << 0.0 << QByteArray("0.0");
    QTest::newRow("minus zero") << -0.0 << QByteArray("-0.0");
    QTest::newRow("whole") << 1.0 << QByteArray("1.0");
    QTest::newRow("of bytes") << 127.0 / 255 << QByteArray("0.4980392156862745");
    QTest::newRow("rounded up") << 0.1 + 0.2 << QByteArray("0.30000000000000004");
    QTest::newRow("smallest") << 5e-324 << QByteArray("5e-324");
    QTest::newRow("large") << 1e21 << QByteArray("1e+21");
    QTest::newRow("greatest") << 1.7976931348623157e308 << QByteArray("1.7976931348623157e+308");
}

void JsonWriterTest::numbersHaveAFractionOrAnExponent()
{
    QFETCH(const double, number);
    QFETCH(const QByteArray, json);
    JsonWriter writer;
    writer.number(number);
    QCOMPARE(writer.text(), json);
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::JsonWriterTest)
#include "JsonWriterTest.moc"
