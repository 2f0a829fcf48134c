#include "ShellWord.h"

#include <QRegularExpression>

namespace tintwick {

using namespace Qt::StringLiterals;

QString shellWord(const QString& text)
{
    static const QRegularExpression literal(u"^[A-Za-z0-9_./+:@%-]+$"_s);
    if (literal.match(text).hasMatch()) {
        return text;
    }
    return u'\'' + QString(text).replace(u'\'', uR"('\'')"_s) + u'\'';
}

QString shellCommand(const QStringList& words)
{
    QStringList quoted;
    for (const QString& word : words) {
        quoted.append(shellWord(word));
    }
    return quoted.join(u' ');
}

} // namespace tintwick
