#include "StyleSheetReader.h"

#include "ColorText.h"

#include <QRegularExpression>

#include <optional>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// The text with blanks for its comments, in which line breaks stay; nothing when a comment does not end. `line` is then the
/// line where it begins.
std::optional<QString> withoutComments(QString text, qsizetype& line)
{
    for (qsizetype start = 0; start + 1 < text.size(); ++start) {
        const bool isBlock = text[start] == u'/' && text[start + 1] == u'*';
        // Not the one of "https://".
        const bool isLine =
            text[start] == u'/' && text[start + 1] == u'/' && (start == 0 || text[start - 1] != u':');
        if (!isBlock && !isLine) {
            continue;
        }
        qsizetype end = text.indexOf(isBlock ? u"*/"_s : u"\n"_s, start + 2);
        if (isBlock && end < 0) {
            line = text.first(start).count(u'\n') + 1;
            return std::nullopt;
        }
        end = isBlock ? end + 2 : (end < 0 ? text.size() : end);
        for (qsizetype i = start; i < end; ++i) {
            text[i] = text[i] == u'\n' ? u'\n' : u' ';
        }
        start = end - 1;
    }
    return text;
}

bool isMeantAsColor(const QString& value)
{
    static const QRegularExpression beginning(u"^(#|(rgba?|hsla?|hwb|lab|lch|oklab|oklch|color)\\()"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression computed(u"var\\(|calc\\(|\\bfrom\\b|\\$|#\\{"_s);
    return beginning.match(value).hasMatch() && !computed.match(value).hasMatch();
}

} // namespace

Import readStyleSheet(QByteArrayView bytes)
{
    static const QRegularExpression declaration(
        u"(?:^|[{;\\s])(?:--|\\$)([\\w\\-\\x{80}-\\x{10FFFF}]+)\\s*:\\s*([^;{}]*)"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression flag(u"\\s*!(default|global|important)\\s*$"_s);
    qsizetype line = 0;
    const auto text = withoutComments(QString::fromUtf8(bytes), line);
    if (!text) {
        return problemInLine(line, u"the comment is not closed"_s);
    }
    ImportedPalette palette;
    auto matches = declaration.globalMatch(*text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString value = match.captured(2).remove(flag).trimmed();
        if (const auto written = colorFromCss(value)) {
            palette.colors.append(written->color);
            palette.colors.last().customName = match.captured(1);
        } else if (isMeantAsColor(value)) {
            line = text->first(match.capturedStart(2)).count(u'\n') + 1;
            return problemInLine(line, u"'%1' is not a color"_s.arg(value.left(40)));
        }
    }
    return palette;
}

} // namespace tintwick
