#include "CssComments.h"

namespace tintwick {

using namespace Qt::StringLiterals;

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

} // namespace tintwick
