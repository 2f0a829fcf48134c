#include "SingleLine.h"

namespace tintwick {

QString inSingleLine(QString text)
{
    for (QChar& unit : text) {
        switch (unit.category()) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            unit = u' ';
            break;
        default:
            break;
        }
    }
    return text;
}

} // namespace tintwick
