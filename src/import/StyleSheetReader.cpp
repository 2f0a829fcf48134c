#include "StyleSheetReader.h"

#include "ColorText.h"
#include "CssComments.h"

#include <QRegularExpression>

#include <optional>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

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
            palette.append(*written, match.captured(1));
        } else if (isMeantAsColor(value)) {
            line = text->first(match.capturedStart(2)).count(u'\n') + 1;
            return problemInLine(line, u"'%1' is not a color"_s.arg(value.left(40)));
        }
    }
    return palette;
}

} // namespace tintwick
