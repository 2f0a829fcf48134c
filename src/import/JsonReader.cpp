#include "JsonReader.h"

#include "ColorText.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

/// Finds the first error of a text without building values, so that a file of opening brackets costs neither memory nor
/// stack.
class ErrorFinder final : public nlohmann::json_sax<Json>
{
public:
    [[nodiscard]] qsizetype place() const { return m_place; }
    [[nodiscard]] bool isTooDeep() const { return m_depth > greatestDepth; }

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return ++m_depth <= greatestDepth; }
    bool key(string_t&) override { return true; }
    bool end_object() override { return --m_depth >= 0; }
    bool start_array(std::size_t) override { return ++m_depth <= greatestDepth; }
    bool end_array() override { return --m_depth >= 0; }
    bool parse_error(std::size_t place, const std::string&, const nlohmann::detail::exception&) override
    {
        m_place = static_cast<qsizetype>(place);
        return false;
    }

private:
    static constexpr int greatestDepth = 64;

    int m_depth = 0;
    qsizetype m_place = 0;
};

std::optional<QString> textIn(const Json& object, const char* key)
{
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string()) {
        return std::nullopt;
    }
    return QString::fromStdString(found->get_ref<const std::string&>());
}

QString componentText(const Json& component, bool isPercent)
{
    if (!component.is_number()) {
        return u"none"_s;
    }
    const QString number = QString::number(component.get<double>(), 'g', 12);
    return isPercent ? number + u'%' : number;
}

/// A colour value of a token in CSS; empty when it has no such form.
QString cssOf(const Json& value)
{
    if (value.is_string()) {
        return QString::fromStdString(value.get_ref<const std::string&>());
    }
    const auto space = value.is_object() ? textIn(value, "colorSpace") : std::nullopt;
    const auto components = value.is_object() ? value.find("components") : value.end();
    if (!space || components == value.end() || !components->is_array() || components->size() != 3) {
        return {};
    }
    const bool isFunction =
        QStringList{u"hsl"_s, u"hwb"_s, u"lab"_s, u"lch"_s, u"oklab"_s, u"oklch"_s}.contains(*space);
    const bool hasPercents = *space == "hsl"_L1 || *space == "hwb"_L1;
    QString css = isFunction ? *space + u'(' : u"color("_s + *space + u' ';
    for (std::size_t i = 0; i < 3; ++i) {
        css += componentText((*components)[i], hasPercents && i > 0) + u' ';
    }
    const auto alpha = value.find("alpha");
    return css +
           (alpha != value.end() && alpha->is_number() ? u"/ "_s + componentText(*alpha, false) : QString()) +
           u')';
}

/// Reads the tokens of a group and of the groups in it.
class TokenReader final
{
public:
    [[nodiscard]] Import read(const Json& file)
    {
        readGroup(file, {}, {});
        if (m_problem) {
            return *m_problem;
        }
        return m_palette;
    }

private:
    void readGroup(const Json& group, const QString& path, QString type)
    {
        type = textIn(group, "$type").value_or(type);
        for (const auto& [key, member] : group.items()) {
            if (!member.is_object() || key.starts_with('$') || m_problem) {
                continue;
            }
            const QString name = QString::fromStdString(key);
            const QString memberPath = path.isEmpty() ? name : path + u'.' + name;
            if (member.contains("$value")) {
                readToken(member, name, memberPath, textIn(member, "$type").value_or(type));
            } else {
                if (m_palette.name.isEmpty() && path.isEmpty() && group.size() == 1) {
                    m_palette.name = name;
                }
                readGroup(member, memberPath, type);
            }
        }
    }

    void readToken(const Json& token, const QString& name, const QString& path, const QString& type)
    {
        const QString css = cssOf(token["$value"]);
        if (type != "color"_L1 || css.startsWith(u'{')) {
            return;
        }
        const auto written = colorFromText(css);
        if (!written) {
            m_problem = ImportProblem{u"the token %1 is not a color"_s.arg(path.left(60))};
            return;
        }
        m_palette.append(*written, textIn(token, "$description").value_or(name));
    }

    ImportedPalette m_palette;
    std::optional<ImportProblem> m_problem;
};

/// Our export: an array of objects with "hex" and perhaps "name".
Import readOurExport(const Json& array)
{
    ImportedPalette palette;
    for (const Json& object : array) {
        const auto hex = object.is_object() ? textIn(object, "hex") : std::nullopt;
        const auto written = hex ? colorFromText(*hex) : std::nullopt;
        if (!written) {
            return ImportProblem{u"entry %1 has no color"_s.arg(palette.colors.size() + 1)};
        }
        palette.append(*written, textIn(object, "name"));
    }
    return palette;
}

} // namespace

Import readJsonPalette(QByteArrayView bytes)
{
    ErrorFinder errors;
    // The parser ends at a zero byte and would ignore the text after it.
    const qsizetype zero = bytes.indexOf('\0');
    if (zero >= 0 || !Json::sax_parse(bytes.begin(), bytes.end(), &errors)) {
        const qsizetype place = zero >= 0 ? zero : errors.place();
        const QString reason =
            errors.isTooDeep() ? u"the file is nested too deeply"_s : u"this is not JSON"_s;
        return problemInLine(bytes.first(std::min(place, bytes.size())).count('\n') + 1, reason);
    }
    const Json file = Json::parse(bytes.begin(), bytes.end(), nullptr, false);
    if (file.is_array()) {
        return readOurExport(file);
    }
    return file.is_object() ? TokenReader().read(file)
                            : Import(ImportProblem{u"there are no colors in it"_s});
}

} // namespace tintwick
