#include "PayloadCoding.h"
#include "UtcDateTime.h"

#include <QFile>
#include <QTest>

#include <bit>
#include <cstdint>
#include <limits>

namespace tintwick {

namespace {

const QByteArray wholeFile = "{\n"
                             "  \"history\": [\n"
                             "    {\n"
                             "      \"id\": \"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10\",\n"
                             "      \"red\": 0.1,\n"
                             "      \"green\": 1.0,\n"
                             "      \"blue\": 0.0,\n"
                             "      \"alpha\": 0.5,\n"
                             "      \"capturedAt\": \"2025-03-14T09:26:53Z\",\n"
                             "      \"customName\": \"Océan \\\"1\\\"\"\n"
                             "    },\n"
                             "    {\n"
                             "      \"id\": \"FFFFFFFF-0000-4000-8000-000000000001\",\n"
                             "      \"red\": 0.3333333333333333,\n"
                             "      \"green\": 5e-324,\n"
                             "      \"blue\": 0.9999999999999999,\n"
                             "      \"alpha\": 1.0,\n"
                             "      \"capturedAt\": \"1999-12-31T23:59:59Z\"\n"
                             "    }\n"
                             "  ],\n"
                             "  \"collections\": [\n"
                             "    {\n"
                             "      \"id\": \"11111111-2222-4333-8444-555555555555\",\n"
                             "      \"name\": \"Brand\",\n"
                             "      \"colorIds\": [\n"
                             "        \"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10\"\n"
                             "      ],\n"
                             "      \"createdAt\": \"2025-01-02T03:04:05Z\",\n"
                             "      \"icon\": \"paintpalette.fill\"\n"
                             "    }\n"
                             "  ],\n"
                             "  \"defaultFormat\": \"CSS Var\"\n"
                             "}";

Payload wholePayload()
{
    const CapturedColor ocean{
        QUuid(0x0bd3f0a0, 0x7c65, 0x4b8e, 0x9c, 0x5e, 0x5d, 0x1f, 0x6a, 0x3b, 0x2c, 0x10),
        0.1,
        1,
        0,
        0.5,
        utcDateTime(QDate(2025, 3, 14), QTime(9, 26, 53)),
        QStringLiteral("Océan \"1\"")};
    const CapturedColor unnamed{QUuid(0xffffffff, 0, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 1),
                                0.3333333333333333,
                                5e-324,
                                0.9999999999999999,
                                1,
                                utcDateTime(QDate(1999, 12, 31), QTime(23, 59, 59)),
                                std::nullopt};
    const ColorCollection brand{
        QUuid(0x11111111, 0x2222, 0x4333, 0x84, 0x44, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55),
        QStringLiteral("Brand"),
        {ocean.id},
        utcDateTime(QDate(2025, 1, 2), QTime(3, 4, 5)),
        QStringLiteral("paintpalette.fill")};
    return {{ocean, unnamed}, {brand}, ColorFormat::CssVar};
}

/// A file with one colour and one collection in which `from` is replaced by `to`; empty when `from` does not occur.
QByteArray changed(const QByteArray& from, const QByteArray& to)
{
    static const QByteArray small =
        R"({"history":[{"id":"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10","red":0.1,"green":0.2,"blue":0.3,"alpha":0.4,)"
        R"("capturedAt":"2025-03-14T09:26:53Z","customName":"Ocean"}],)"
        R"("collections":[{"id":"11111111-2222-4333-8444-555555555555","name":"Brand",)"
        R"("colorIds":["0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10"],"createdAt":"2025-01-02T03:04:05Z",)"
        R"("icon":"paintpalette.fill"}],"defaultFormat":"HEX"})";
    QByteArray text = small;
    text.replace(from, to);
    return from.isEmpty() || text != small ? text : QByteArray();
}

Payload payloadOf(double red)
{
    Payload payload = wholePayload();
    payload.history.first().red = red;
    return payload;
}

} // namespace

class PayloadCodingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPayloadIsEncoded();
    void keptColorsAreAnExtraKey();
    void aVersionThatDoesNotKnowKeptColorsReadsTheRest();
    void aVersionWithNineFormatsReadsTheRest();
    void theColorOfAnIconIsAnExtraKey();
    void anEmptyPayloadIsEncoded();
    void aFileOfAnEarlierVersionIsReproducedExactly();
    void numbersHaveAFractionOrAnExponent_data();
    void numbersHaveAFractionOrAnExponent();
    void textsAreEscaped_data();
    void textsAreEscaped();
    void anEncodedPayloadIsDecoded();
    void acceptedTexts_data();
    void acceptedTexts();
    void refusedTexts_data();
    void refusedTexts();
    void everyRequiredKeyIsRequired_data();
    void everyRequiredKeyIsRequired();
    void everyValueHasItsType_data();
    void everyValueHasItsType();
    void numbersRoundTrip_data();
    void numbersRoundTrip();
    void anyJsonNumberIsAComponent_data();
    void anyJsonNumberIsAComponent();
    void datesAreTruncatedToSecondsInUtc_data();
    void datesAreTruncatedToSecondsInUtc();
    void acceptedAndRefusedDates_data();
    void acceptedAndRefusedDates();
    void namesRoundTrip_data();
    void namesRoundTrip();
    void aNullNameMeansNoName();
    void theLastOfRepeatedKeysCounts();
    void valuesWithoutJsonFormAreNotEncoded();
    void whatWasReadCanBeWrittenAgain();
    void everyTruncatedFileIsRefused();
    void deeplyNestedAndLargeFilesDoNotCrash();
};

void PayloadCodingTest::aPayloadIsEncoded()
{
    QCOMPARE(encodePayload(wholePayload()), wholeFile);
}

void PayloadCodingTest::keptColorsAreAnExtraKey()
{
    Payload payload = wholePayload();
    payload.keptColors = {payload.history.takeLast()};
    QByteArray text = wholeFile;
    const qsizetype start = text.indexOf(",\n    {\n      \"id\": \"FFFF");
    const qsizetype end = text.indexOf("\n  ],", start);
    const QByteArray second = text.sliced(start + 2, end - start - 2);
    text.remove(start, end - start);
    text.replace("\"CSS Var\"\n}", "\"CSS Var\",\n  \"keptColors\": [\n" + second + "\n  ]\n}");
    QCOMPARE(encodePayload(payload), text);
    QVERIFY(decodePayload(text) == payload);

    payload.keptColors.clear();
    QVERIFY(!encodePayload(payload)->contains("keptColors"));
}

void PayloadCodingTest::aVersionThatDoesNotKnowKeptColorsReadsTheRest()
{
    Payload payload = wholePayload();
    payload.keptColors = {payload.history.takeLast()};
    // To an earlier version the key has no meaning, as this one has none here.
    const auto decoded = decodePayload(encodePayload(payload)->replace("keptColors", "other"));
    payload.keptColors.clear();
    QVERIFY(decoded == payload);
}

void PayloadCodingTest::aVersionWithNineFormatsReadsTheRest()
{
    Payload payload = wholePayload();
    payload.defaultFormat = ColorFormat::Oklch;
    payload.colorTemplate = QStringLiteral("{r}");
    const auto text = encodePayload(payload);
    QVERIFY(decodePayload(*text) == payload);
    QVERIFY(text->contains(R"("defaultFormat": "HEX")"));
    QVERIFY(text->contains(R"("laterFormat": "OKLCH")"));
    // To an earlier version the keys have no meaning, as these have none here.
    const auto decoded =
        decodePayload(QByteArray(*text).replace("laterFormat", "a").replace("colorTemplate", "b"));
    payload.defaultFormat = ColorFormat::Hex6;
    payload.colorTemplate = defaultColorTemplate();
    QVERIFY(decoded == payload);
    // A format of a later version still.
    QCOMPARE(decodePayload(QByteArray(*text).replace("OKLCH", "LMS"))->defaultFormat, ColorFormat::Hex6);
}

void PayloadCodingTest::theColorOfAnIconIsAnExtraKey()
{
    Payload payload = wholePayload();
    payload.collections.first().iconColor = QStringLiteral("blue");
    QByteArray text = wholeFile;
    const QByteArray icon = R"("icon": "paintpalette.fill")";
    text.replace(icon, icon + ",\n      \"iconColor\": \"blue\"");
    QCOMPARE(encodePayload(payload), text);
    QVERIFY(decodePayload(text) == payload);
    // To an earlier version the key has no meaning, as this one has none here; a later one may store something else.
    const QByteArrayList unknown{QByteArray(text).replace("iconColor", "other"),
                                 QByteArray(text).replace(": \"blue\"", ": 7")};
    for (const QByteArray& each : unknown) {
        QVERIFY(decodePayload(each) == wholePayload());
    }
}

void PayloadCodingTest::anEmptyPayloadIsEncoded()
{
    QCOMPARE(encodePayload({}),
             QByteArray("{\n  \"history\": [],\n  \"collections\": [],\n  \"defaultFormat\": \"HEX\"\n}"));
}

// Earlier versions wrote the text without a JSON library. The file has numbers of every form and texts with every
// escape.
void PayloadCodingTest::aFileOfAnEarlierVersionIsReproducedExactly()
{
    QFile file(QStringLiteral(DATA_FILE_FIXTURE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    const auto payload = decodePayload(text);
    QVERIFY(payload.has_value());
    QCOMPARE(payload->history.size(), 30);
    QCOMPARE(encodePayload(*payload), text);
}

void PayloadCodingTest::numbersHaveAFractionOrAnExponent_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("zero") << 0.0 << QByteArray("0.0");
    QTest::newRow("minus zero") << -0.0 << QByteArray("-0.0");
    QTest::newRow("whole") << 1.0 << QByteArray("1.0");
    QTest::newRow("of bytes") << 127.0 / 255 << QByteArray("0.4980392156862745");
    QTest::newRow("rounded up") << 0.1 + 0.2 << QByteArray("0.30000000000000004");
    QTest::newRow("tiny") << 1e-7 << QByteArray("1e-07");
    QTest::newRow("smallest") << 5e-324 << QByteArray("5e-324");
    QTest::newRow("large") << 1e21 << QByteArray("1e+21");
    QTest::newRow("greatest") << 1.7976931348623157e308 << QByteArray("1.7976931348623157e+308");
}

void PayloadCodingTest::numbersHaveAFractionOrAnExponent()
{
    QFETCH(const double, number);
    QFETCH(const QByteArray, json);
    QVERIFY(encodePayload(payloadOf(number))->contains("\"red\": " + json + ",\n"));
}

void PayloadCodingTest::textsAreEscaped_data()
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
    QTest::newRow("lone surrogate") << QString(QChar(0xD83D)) << QByteArray("\"?\"");
}

void PayloadCodingTest::textsAreEscaped()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, json);
    Payload payload = wholePayload();
    payload.collections.first().name = text;
    QVERIFY(encodePayload(payload)->contains("\"name\": " + json + ",\n"));
}

void PayloadCodingTest::anEncodedPayloadIsDecoded()
{
    QCOMPARE(decodePayload(wholeFile), wholePayload());
    QCOMPARE(decodePayload(*encodePayload({})), Payload());
}

void PayloadCodingTest::acceptedTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("unchanged") << changed("", "");
    QTest::newRow("white space around") << "\n\t \r\n" + changed("", "") + "\n\n";
    QTest::newRow("white space within") << changed(",", " ,\n\t");
    QTest::newRow("another order of keys") << QByteArray(
        R"({"defaultFormat":"HEX","collections":[],"history":[{"capturedAt":"2025-03-14T09:26:53Z",)"
        R"("alpha":1,"blue":1,"green":1,"red":1,"id":"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10"}]})");
    QTest::newRow("no kept colours") << changed(R"("HEX"})", R"("HEX","keptColors":null})");
    QTest::newRow("unknown keys") << changed("{\"history\"", R"({"version":{"a":[1,2,{}]},"history")");
    QTest::newRow("unknown key in a colour") << changed("\"red\":0.1", R"("red":0.1,"hex":"#19334C")");
    QTest::newRow("lower-case id") << changed("0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10",
                                              "0bd3f0a0-7c65-4b8e-9c5e-5d1f6a3b2c10");
    QTest::newRow("mixed-case id") << changed("0BD3F0A0-7C65", "0bD3f0A0-7c65");
    QTest::newRow("all-zero id") << changed("0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10",
                                            "00000000-0000-0000-0000-000000000000");
    QTest::newRow("empty name") << changed("\"Brand\"", "\"\"");
    QTest::newRow("no members") << changed(R"(["0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10"])", "[]");
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + changed("", "");
    QTest::newRow("nested to the limit")
        << changed("{\"history\"", "{\"x\":" + QByteArray(63, '[') + QByteArray(63, ']') + ",\"history\"");
}

void PayloadCodingTest::acceptedTexts()
{
    QFETCH(QByteArray, text);
    QVERIFY(decodePayload(text).has_value());
}

void PayloadCodingTest::refusedTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const QByteArray& text) { QTest::newRow(name) << text; };
    row("nothing", "");
    row("white space", " \n");
    row("zero byte", QByteArray(1, '\0'));
    row("zero bytes after the object", changed("", "") + QByteArray(8, '\0'));
    row("text after the object", changed("", "") + "{}");
    row("an array", "[" + changed("", "") + "]");
    row("a string", "\"history\"");
    row("a number", "1");
    row("null", "null");
    row("an empty object", "{}");
    row("comment", "/* saved */" + changed("", ""));
    row("trailing comma", changed("\"HEX\"}", "\"HEX\",}"));
    row("single quotes", changed("\"HEX\"", "'HEX'"));
    row("key without quotes", changed("\"history\"", "history"));
    row("line feed in a string", changed("Ocean", "Oce\nan"));
    row("unknown escape", changed("Ocean", "Oce\\xan"));
    row("lone surrogate", changed("Ocean", "\\ud800"));
    row("invalid UTF-8 in a name", changed("Ocean", "\xFF\xFE"));
    row("overlong UTF-8 in a name", changed("Ocean", "\xC0\x80"));
    row("surrogate in UTF-8", changed("Ocean", "\xED\xA0\x80"));
    row("invalid UTF-8 in an unknown key", changed("{\"history\"", "{\"\xFF\":1,\"history\""));
    row("UTF-16", QByteArray("{\0\"\0h\0", 6));
    row("unknown format", changed("\"HEX\"", "\"hex\""));
    row("empty format", changed("\"HEX\"", "\"\""));
    row("format with a zero at its end", changed(R"("HEX")", R"("HEX\u0000")"));
    row("NaN", changed("0.1", "NaN"));
    row("Infinity", changed("0.1", "Infinity"));
    row("minus Infinity", changed("0.1", "-Infinity"));
    row("number too large", changed("0.1", "1e400"));
    row("integer too large for any float", changed("0.1", QByteArray(400, '9')));
    row("leading zero", changed("0.1", "00.1"));
    row("leading plus", changed("0.1", "+0.1"));
    row("no digit before the point", changed("0.1", ".1"));
    row("no digit after the point", changed("0.1", "0."));
    row("decimal comma", changed("0.1", "0,1"));
    row("hexadecimal", changed("0.1", "0x1"));
    row("number as text", changed("0.1", "\"0.1\""));
    row("id in braces",
        changed("0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10", "{0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10}"));
    row("id without hyphens",
        changed("0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10", "0BD3F0A07C654B8E9C5E5D1F6A3B2C10"));
    row("id with hyphens elsewhere", changed("0BD3F0A0-7C65-4B8E", "0BD3F0A-07C65-4B8E"));
    row("id too short", changed("5D1F6A3B2C10", "5D1F6A3B2C1"));
    row("id too long", changed("5D1F6A3B2C10", "5D1F6A3B2C100"));
    row("id with another letter", changed("5D1F6A3B2C10", "5D1F6A3B2C1G"));
    row("id with full-width digits", changed("5D1F6A3B2C10", "5D1F6A3B2C1\xEF\xBC\x90"));
    row("id with blanks", changed("0BD3F0A0-7C65", " BD3F0A0-7C65"));
    row("empty id", changed("0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10", ""));
    row("member that is not an id", changed(R"("colorIds":[)", R"("colorIds":["Ocean",)"));
    row("member null", changed(R"("colorIds":[)", R"("colorIds":[null,)"));
    row("colour null", changed(R"("history":[)", R"("history":[null,)"));
    row("colour in a list", changed(R"("history":[)", R"("history":[[],)"));
    row("collection that is a number", changed(R"("collections":[)", R"("collections":[1,)"));
    row("name that is a number", changed("\"Ocean\"", "7"));
    row("name that is false", changed("\"Ocean\"", "false"));
    row("nested beyond the limit",
        changed("{\"history\"", "{\"x\":" + QByteArray(64, '[') + QByteArray(64, ']') + ",\"history\""));
    const QByteArray lastMember = R"("defaultFormat":"HEX")";
    row("kept colours that are no list", changed(lastMember, lastMember + R"(,"keptColors":{})"));
    row("a kept colour without components",
        changed(lastMember, lastMember + R"(,"keptColors":[{"id":"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10"}])"));
    row("too large", changed("", "") + QByteArray(largestPayload, ' '));
}

void PayloadCodingTest::refusedTexts()
{
    QFETCH(QByteArray, text);
    QVERIFY(!decodePayload(text).has_value());
}

void PayloadCodingTest::everyRequiredKeyIsRequired_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("required");
    for (const char* key : {"history", "collections", "defaultFormat", "red", "green", "blue", "alpha",
                            "capturedAt", "name", "colorIds", "createdAt", "icon"}) {
        QTest::newRow(key) << QByteArray(key) << true;
    }
    QTest::newRow("id of the colour") << QByteArray("id\":\"0BD") << true;
    QTest::newRow("id of the collection") << QByteArray("id\":\"111") << true;
    QTest::newRow("customName") << QByteArray("customName") << false;
}

void PayloadCodingTest::everyRequiredKeyIsRequired()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, required);
    // The text with the key renamed is valid apart from the missing key.
    const QByteArray quoted = '"' + key + (key.contains('"') ? "" : "\"");
    const QByteArray text = changed(quoted, "\"no-" + quoted.sliced(1));
    QVERIFY(!text.isEmpty());
    QCOMPARE(decodePayload(text).has_value(), !required);
}

void PayloadCodingTest::everyValueHasItsType_data()
{
    QTest::addColumn<QByteArray>("member");
    const auto row = [](const char* member) { QTest::newRow(member) << QByteArray(member); };
    row(R"("red":0.1)");
    row(R"("green":0.2)");
    row(R"("blue":0.3)");
    row(R"("alpha":0.4)");
    row(R"("capturedAt":"2025-03-14T09:26:53Z")");
    row(R"("name":"Brand")");
    row(R"("colorIds":["0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10"])");
    row(R"("createdAt":"2025-01-02T03:04:05Z")");
    row(R"("icon":"paintpalette.fill")");
    row(R"("defaultFormat":"HEX")");
    row(R"("id":"0BD3F0A0-7C65-4B8E-9C5E-5D1F6A3B2C10")");
    row(R"("id":"11111111-2222-4333-8444-555555555555")");
}

void PayloadCodingTest::everyValueHasItsType()
{
    QFETCH(QByteArray, member);
    const QByteArray key = member.left(member.indexOf(':') + 1);
    for (const char* value : {"null", "true", "false", "{}", "[[]]", "[1]", "\"x\""}) {
        if (value == QByteArray("\"x\"") && (key == "\"name\":" || key == "\"icon\":")) {
            continue;
        }
        QVERIFY2(!decodePayload(changed(member, key + value)).has_value(), value);
    }
}

void PayloadCodingTest::numbersRoundTrip_data()
{
    QTest::addColumn<double>("value");
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               0.1,
                               0.1 + 0.2,
                               1.0 / 3,
                               2.0 / 3,
                               127.0 / 255,
                               254.0 / 255,
                               0.9999999999999999,
                               1.0000000000000002,
                               5e-324,
                               2.2250738585072011e-308,
                               2.2250738585072014e-308,
                               1.7976931348623157e308,
                               -1.7976931348623157e308,
                               9007199254740993.0,
                               1e21,
                               123456789012345680.0,
                               4.35,
                               9.5367431640625e-7}) {
        QTest::newRow(qPrintable(QString::number(value, 'g', 17))) << value;
    }
}

void PayloadCodingTest::numbersRoundTrip()
{
    QFETCH(double, value);
    const auto decoded = decodePayload(*encodePayload(payloadOf(value)));
    QVERIFY(decoded.has_value());
    QCOMPARE(std::bit_cast<std::uint64_t>(decoded->history.first().red), std::bit_cast<std::uint64_t>(value));
}

void PayloadCodingTest::anyJsonNumberIsAComponent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("integer") << QByteArray("1") << 1.0;
    QTest::newRow("zero") << QByteArray("0") << 0.0;
    QTest::newRow("negative") << QByteArray("-3") << -3.0;
    QTest::newRow("exponent") << QByteArray("5E-1") << 0.5;
    QTest::newRow("long") << QByteArray("0.333333333333333314829616256247390992939472198486328125")
                          << 1.0 / 3;
    QTest::newRow("largest 64-bit integer") << QByteArray("18446744073709551615") << 18446744073709551616.0;
    QTest::newRow("integer beyond 64 bits") << QByteArray("100000000000000000000000") << 1e23;
    QTest::newRow("rounds to zero") << QByteArray("1e-400") << 0.0;
}

void PayloadCodingTest::anyJsonNumberIsAComponent()
{
    QFETCH(QByteArray, text);
    QFETCH(double, value);
    const auto decoded = decodePayload(changed("0.1", text));
    QVERIFY(decoded.has_value());
    QCOMPARE(decoded->history.first().red, value);
}

void PayloadCodingTest::datesAreTruncatedToSecondsInUtc_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<QByteArray>("text");
    const QDate day(2025, 3, 14);
    QTest::newRow("whole") << utcDateTime(day, QTime(9, 26, 53)) << QByteArray("2025-03-14T09:26:53Z");
    QTest::newRow("fraction") << utcDateTime(day, QTime(9, 26, 53, 999))
                              << QByteArray("2025-03-14T09:26:53Z");
    QTest::newRow("fraction before 1970")
        << utcDateTime(QDate(1969, 12, 31), QTime(23, 59, 59, 500)) << QByteArray("1969-12-31T23:59:59Z");
    QTest::newRow("east of Greenwich")
        << QDateTime(day, QTime(1, 26, 53), QTimeZone(2 * 3600)) << QByteArray("2025-03-13T23:26:53Z");
    QTest::newRow("first year") << utcDateTime(QDate(1, 1, 1), QTime(0, 0))
                                << QByteArray("0001-01-01T00:00:00Z");
    QTest::newRow("last second") << utcDateTime(QDate(9999, 12, 31), QTime(23, 59, 59))
                                 << QByteArray("9999-12-31T23:59:59Z");
}

void PayloadCodingTest::datesAreTruncatedToSecondsInUtc()
{
    QFETCH(QDateTime, date);
    QFETCH(QByteArray, text);
    Payload payload = wholePayload();
    payload.history.first().capturedAt = date;
    payload.collections.first().createdAt = date;
    const QByteArray json = encodePayload(payload).value();
    QVERIFY(json.contains("\"capturedAt\": \"" + text + "\""));
    QVERIFY(json.contains("\"createdAt\": \"" + text + "\""));

    const QDateTime reloaded = decodePayload(json)->history.first().capturedAt;
    QCOMPARE(reloaded.timeSpec(), Qt::UTC);
    QCOMPARE(reloaded.toMSecsSinceEpoch(), date.addMSecs(-date.time().msec()).toMSecsSinceEpoch());
}

void PayloadCodingTest::acceptedAndRefusedDates_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("accepted");
    for (const char* text : {"2025-03-14T09:26:53Z", "2024-02-29T00:00:00Z", "2000-02-29T23:59:59Z",
                             "0001-01-01T00:00:00Z", "9999-12-31T23:59:59Z"}) {
        QTest::newRow(text) << QByteArray(text) << true;
    }
    for (const char* text : {"",
                             "2025-03-14",
                             "2025-03-14T09:26Z",
                             "2025-03-14T09:26:53",
                             "2025-03-14T09:26:53.5Z",
                             "2025-03-14T09:26:53+00:00",
                             "2025-03-14T09:26:53+01:00",
                             "2025-03-14 09:26:53Z",
                             "2025-03-14t09:26:53z",
                             "20250314T092653Z",
                             "2025-3-14T09:26:53Z",
                             "+025-03-14T09:26:53Z",
                             "-025-03-14T09:26:53Z",
                             "2025-03-14T09:26:+3Z",
                             "2025-00-14T09:26:53Z",
                             "2025-13-14T09:26:53Z",
                             "2025-03-00T09:26:53Z",
                             "2025-02-29T09:26:53Z",
                             "1900-02-29T09:26:53Z",
                             "2025-04-31T09:26:53Z",
                             "2025-03-14T24:00:00Z",
                             "2025-03-14T09:60:53Z",
                             "2016-12-31T23:59:60Z",
                             "0000-01-01T00:00:00Z",
                             " 2025-03-14T09:26:5Z",
                             "2025-03-14T09:26:53Z ",
                             "1741944413"}) {
        QTest::newRow(qPrintable(QStringLiteral("refused: '%1'").arg(QLatin1StringView(text))))
            << QByteArray(text) << false;
    }
}

void PayloadCodingTest::acceptedAndRefusedDates()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, accepted);
    if (text != "2025-03-14T09:26:53Z") {
        QCOMPARE(decodePayload(changed("2025-03-14T09:26:53Z", text)).has_value(), accepted);
    }
    QCOMPARE(decodePayload(changed("2025-01-02T03:04:05Z", text)).has_value(), accepted);
}

void PayloadCodingTest::namesRoundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("quotes and backslashes") << QStringLiteral("\"\\/\b\f\n\r\t");
    QTest::newRow("control characters") << QStringLiteral("a\u0001\u001F\u007F") + QChar(u'\0') + u'b';
    QTest::newRow("beyond the basic plane") << QStringLiteral("\U0001F3A8 paint");
    QTest::newRow("noncharacters") << QStringLiteral("\uFFFE\uFFFF");
    QTest::newRow("byte order mark at the start") << QStringLiteral("\uFEFFSea");
    QTest::newRow("two byte order marks") << QStringLiteral("\uFEFF\uFEFF");
    QTest::newRow("right to left") << QStringLiteral("أزرق");
}

void PayloadCodingTest::namesRoundTrip()
{
    QFETCH(QString, name);
    Payload payload = wholePayload();
    payload.history.first().customName = name;
    payload.collections.first().name = name;
    QCOMPARE(decodePayload(*encodePayload(payload)), payload);
}

void PayloadCodingTest::aNullNameMeansNoName()
{
    const auto decoded = decodePayload(changed("\"Ocean\"", "null"));
    QVERIFY(decoded.has_value());
    QVERIFY(!decoded->history.first().customName.has_value());
}

void PayloadCodingTest::theLastOfRepeatedKeysCounts()
{
    QCOMPARE(decodePayload(changed("\"red\":0.1", "\"red\":0.1,\"red\":0.9"))->history.first().red, 0.9);
    QVERIFY(!decodePayload(changed("\"red\":0.1", "\"red\":0.1,\"red\":null")).has_value());
}

void PayloadCodingTest::whatWasReadCanBeWrittenAgain()
{
    // A file without white space that is almost as large as a file may be; 39 bytes for each id.
    Payload payload = wholePayload();
    payload.history = {payload.history.first()};
    payload.history.first().red = 1;
    payload.history.first().green = -0.0;
    payload.collections = {payload.collections.first()};
    payload.collections.first().colorIds = QList<QUuid>(430'000, QUuid());
    const auto text = encodePayload(payload);
    QVERIFY(text.has_value());
    QVERIFY(text->size() > 16'000'000);
    QVERIFY(text->contains("\"red\":1,\"green\":-0.0,"));
    QCOMPARE(decodePayload(*text), payload);
}

void PayloadCodingTest::valuesWithoutJsonFormAreNotEncoded()
{
    QVERIFY(encodePayload(payloadOf(7.5)).has_value());
    QVERIFY(!encodePayload(payloadOf(std::numeric_limits<double>::infinity())).has_value());
    QVERIFY(!encodePayload(payloadOf(std::numeric_limits<double>::quiet_NaN())).has_value());

    Payload withoutDate = wholePayload();
    withoutDate.history.first().capturedAt = QDateTime();
    QVERIFY(!encodePayload(withoutDate).has_value());
    Payload tooLate = wholePayload();
    tooLate.collections.first().createdAt = utcDateTime(QDate(10000, 1, 1), QTime(0, 0));
    QVERIFY(!encodePayload(tooLate).has_value());
    Payload tooLarge = wholePayload();
    tooLarge.collections.first().name = QString(largestPayload, u'x');
    QVERIFY(!encodePayload(tooLarge).has_value());

    // A lone surrogate from another program becomes the replacement character, so that the file stays readable.
    Payload halfACharacter = wholePayload();
    halfACharacter.collections.first().name = QChar(0xD83D);
    QVERIFY(decodePayload(*encodePayload(halfACharacter)).has_value());
}

void PayloadCodingTest::everyTruncatedFileIsRefused()
{
    for (qsizetype length = 0; length < wholeFile.size(); ++length) {
        QVERIFY(!decodePayload(wholeFile.first(length)).has_value());
    }
}

void PayloadCodingTest::deeplyNestedAndLargeFilesDoNotCrash()
{
    QVERIFY(!decodePayload(QByteArray(largestPayload, '[')).has_value());
    QVERIFY(!decodePayload(QByteArray(R"({"a":)").repeated(1'000'000)).has_value());

    QByteArray manyKeys = "{";
    for (int i = 0; i < 100'000; ++i) {
        manyKeys += "\"k" + QByteArray::number(i) + "\":0,";
    }
    manyKeys += R"("history":[],"collections":[],"defaultFormat":"Name"})";
    QVERIFY(decodePayload(manyKeys).has_value());
}

} // namespace tintwick

QTEST_APPLESS_MAIN(tintwick::PayloadCodingTest)
#include "PayloadCodingTest.moc"
