#include "ColorsInText.h"

#include "ColorText.h"
#include "CssComments.h"
#include "GimpPaletteReader.h"
#include "JsonReader.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <optional>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestText = 500'000;
/// A colour with its name is not longer.
constexpr qsizetype longestPiece = 400;

QRegularExpression expression(const QString& pattern)
{
    return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption |
                                           QRegularExpression::DotMatchesEverythingOption |
                                           QRegularExpression::UseUnicodePropertiesOption);
}

/// A value and the name before it, as in "--sky: #38BDF8" and "Sky = #38BDF8".
struct Declaration
{
    /// Of a custom property or a variable.
    bool isVariable = false;
    QString key;
    QString value;
};

Declaration declarationIn(const QString& piece)
{
    static const QRegularExpression declaration =
        expression(u"^(?:(?:export|const|let|var|static|final)\\s+)*[\"'`]?(--|\\$|@)?"
                   "([\\p{L}_][\\w .\\-]{0,60}?)[\"'`]?\\s*[:=]\\s*(.+)$"_s);
    const QRegularExpressionMatch match = declaration.match(piece);
    return match.hasMatch()
               ? Declaration{!match.capturedView(1).isEmpty(), match.captured(2), match.captured(3)}
               : Declaration{false, {}, piece};
}

/// A property of CSS, which says how a colour is used.
bool isColorProperty(const QString& key)
{
    static const QRegularExpression property =
        expression(u"^(?:.*-)?(?:color|background|border|outline|fill|stroke|shadow|image)$|^border-|"
                   "^text-decoration$|^column-rule$"_s);
    return property.match(key).hasMatch();
}

/// Whether a key names its colour and not its notation or its use.
bool isName(const Declaration& declaration)
{
    static const QRegularExpression notation =
        expression(u"^(?:hex|hexa|value|colou?r|rgba?|hsla?|hwb|lab|lch|oklab|oklch|css|default)$"_s);
    return !declaration.key.isEmpty() && !notation.match(declaration.key).hasMatch() &&
           (declaration.isVariable || !isColorProperty(declaration.key));
}

/// Without quotes, a bullet before it and a flag of CSS after it.
QString bared(const QString& value)
{
    static const QRegularExpression bullet = expression(u"^(?:[-*•]|\\d{1,3}[.)])\\s+"_s);
    static const QRegularExpression flag = expression(u"!(?:important|default|global)$"_s);
    const auto isAround = [](QChar character) {
        return character.isSpace() || u"\"'`,"_s.contains(character);
    };
    QStringView rest = QStringView(value).trimmed();
    rest = rest.mid(bullet.match(rest).capturedLength());
    rest.chop(flag.match(rest.last(std::min<qsizetype>(rest.size(), 12))).capturedLength());
    while (!rest.isEmpty() && isAround(rest.front())) {
        rest = rest.mid(1);
    }
    while (!rest.isEmpty() && isAround(rest.back())) {
        rest.chop(1);
    }
    return rest.toString();
}

/// Digits and separators, which are more often something else than a colour.
bool isOnlyNumbers(const QString& value)
{
    static const QRegularExpression numbers = expression(u"^[\\da-f\\s,.]+$"_s);
    return numbers.match(value).hasMatch();
}

bool isOnlyLetters(const QString& value)
{
    return std::ranges::all_of(value,
                               [](QChar character) { return character.isLetter() || character == u' '; });
}

/// The length of a colour function at a place, or 0.
qsizetype functionLength(QStringView text, qsizetype place)
{
    static const QRegularExpression function =
        expression(u"^(?:rgba?|hsla?|hwb|lab|lch|oklab|oklch|color|hs[vb]|cmyk)\\([^()]{1,200}\\)"_s);
    constexpr qsizetype longestName = 5;
    constexpr qsizetype longest = longestName + 202;
    const bool beginsWord = text[place].isLetter() && (place == 0 || !text[place - 1].isLetter());
    const QStringView rest = text.mid(place, longest);
    return beginsWord && rest.first(std::min(rest.size(), longestName + 1)).contains(u'(')
               ? function.match(rest).capturedLength()
               : 0;
}

/// Divides a text at some characters, but not in a colour function.
template <typename Separates, typename Take>
void divide(const QString& text, const Separates& separates, const Take& take)
{
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (const qsizetype length = functionLength(text, i); length > 0) {
            i += length - 1;
        } else if (separates(text, i)) {
            take(text.sliced(start, i - start), text[i]);
            start = i + 1;
        }
    }
    take(text.sliced(start), QChar());
}

class Reader final
{
public:
    explicit Reader(qsizetype most)
        : m_most(most)
    {
    }

    [[nodiscard]] bool isFull() const { return m_found.hasMore; }
    [[nodiscard]] TextColors found() const { return m_found; }

    void add(const WrittenColor& written, const std::optional<QString>& name)
    {
        const QString identity = written.color.hex8() + u' ' + name.value_or(QString());
        if (m_known.contains(identity)) {
            return;
        }
        m_known.insert(identity);
        if (m_found.colors.size() == m_most) {
            m_found.hasMore = true;
            return;
        }
        m_found.colors.append(written.color);
        m_found.colors.last().customName = name;
        m_found.mappedCount += written.isGamutMapped ? 1 : 0;
    }

    void read(const ImportedPalette& palette)
    {
        for (const CapturedColor& color : palette.colors) {
            add({color, palette.mappedIds.contains(color.id)}, color.customName);
        }
    }

    void read(const QString& text)
    {
        const auto separates = [](const QString& all, qsizetype place) {
            const QChar character = all[place];
            // A list goes on in the next line.
            const bool goesOn = character == u'\n' && QStringView(all).first(place).trimmed().endsWith(u',');
            return u";{}"_s.contains(character) || (character == u'\n' && !goesOn);
        };
        divide(text, separates, [this](const QString& piece, QChar end) {
            // A selector, or the beginning of an object.
            const bool isHead = end == u'{' && !piece.contains(u'"') && !piece.contains(u'\'');
            if (!isHead && !isFull()) {
                readPiece(piece.trimmed());
            }
        });
    }

private:
    /// The colour that a whole piece is.
    static std::optional<std::pair<WrittenColor, std::optional<QString>>> wholeColor(const QString& piece)
    {
        if (piece.size() > longestPiece) {
            return std::nullopt;
        }
        const Declaration declaration = declarationIn(bared(piece));
        const QString value = bared(declaration.value);
        if (!declaration.key.isEmpty() && isOnlyNumbers(value)) {
            return std::nullopt;
        }
        const auto written = colorFromText(value);
        if (!written) {
            return std::nullopt;
        }
        return std::pair(*written, isName(declaration) ? std::optional(declaration.key) : std::nullopt);
    }

    void readPiece(const QString& piece)
    {
        if (piece.isEmpty()) {
            return;
        }
        if (const auto whole = wholeColor(piece)) {
            add(whole->first, whole->second);
            return;
        }
        QStringList parts;
        divide(
            piece, [](const QString& all, qsizetype place) { return u",()[]"_s.contains(all[place]); },
            [&parts](const QString& part, QChar) {
                if (!part.trimmed().isEmpty()) {
                    parts.append(part.trimmed());
                }
            });
        const Declaration declaration = declarationIn(bared(piece));
        const bool isList =
            std::ranges::all_of(parts, [](const QString& part) { return wholeColor(part).has_value(); });
        for (const QString& part : std::as_const(parts)) {
            readPart(part, declaration, isList || !declaration.key.isEmpty());
        }
    }

    void readPart(const QString& part, const Declaration& around, bool takesWords)
    {
        const auto whole = isOnlyNumbers(bared(part)) ? std::nullopt : wholeColor(part);
        if (!whole) {
            readInside(part, around);
        } else if (takesWords || !isOnlyLetters(bared(part))) {
            add(whole->first, whole->second);
        }
    }

    /// Colours in other text, such as "1px solid #38BDF8".
    void readInside(const QString& part, const Declaration& around)
    {
        static const QRegularExpression color =
            expression(u"(?<![\\w/&#-])#[\\da-f]{3,8}(?![\\w-])|"
                       "(?<![\\w-])(?:rgba?|hsla?|hwb|lab|lch|oklab|oklch|color)\\([^()]{1,200}\\)|"
                       "(?<![\\w-])[a-z]{3,}(?![\\w(-])"_s);
        static const QRegularExpression issueNumber = expression(u"^#\\d{3,4}$"_s);
        const bool isStyle = around.isVariable || isColorProperty(around.key);
        auto matches = color.globalMatch(part);
        while (matches.hasNext() && !isFull()) {
            const QString text = matches.next().captured();
            if (!isStyle && (isOnlyLetters(text) || issueNumber.match(text).hasMatch())) {
                continue;
            }
            if (const auto written = colorFromCss(text)) {
                add(*written, std::nullopt);
            }
        }
    }

    qsizetype m_most;
    TextColors m_found;
    QSet<QString> m_known;
};

/// The palette that a text is as a whole; none for other texts and without colours.
std::optional<ImportedPalette> paletteIn(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const bool isJson = text.startsWith(u'{') || text.startsWith(u'[');
    Import result;
    if (isGimpPalette(bytes)) {
        result = readGimpPalette(bytes);
    } else if (isJson) {
        result = readJsonPalette(bytes);
    }
    auto* palette = std::get_if<ImportedPalette>(&result);
    return palette != nullptr && !palette->colors.isEmpty() ? std::optional(*palette) : std::nullopt;
}

} // namespace

TextColors colorsInText(const QString& text, qsizetype most)
{
    const QString start = text.left(longestText).trimmed();
    Reader reader(most);
    if (const auto palette = paletteIn(start)) {
        reader.read(*palette);
        return reader.found();
    }
    qsizetype line = 0;
    reader.read(withoutComments(start, line).value_or(start));
    return reader.found();
}

} // namespace tintwick
