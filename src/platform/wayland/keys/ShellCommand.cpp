#include "ShellCommand.h"

#include <QRegularExpression>

namespace tintwick {

using namespace Qt::StringLiterals;

QString shellCommand(const QStringList& words)
{
    static const QRegularExpression special(u"([^A-Za-z0-9_./+:@%-])"_s);
    QStringList escaped;
    for (QString word : words) {
        escaped.append(word.replace(special, uR"(\\1)"_s));
    }
    return escaped.join(u' ');
}

QString quotedWord(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', uR"('\'')"_s) + u'\'';
}

} // namespace tintwick
