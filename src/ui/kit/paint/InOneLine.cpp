#include "InOneLine.h"

#include <algorithm>

namespace tintwick {

QString inOneLine(QString words)
{
    const auto breaksLine = [](QChar character) {
        const QChar::Category category = character.category();
        return category == QChar::Other_Control || category == QChar::Separator_Line ||
               category == QChar::Separator_Paragraph;
    };
    std::replace_if(words.begin(), words.end(), breaksLine, QChar(u' '));
    return words;
}

} // namespace tintwick
