#include "UniqueNames.h"

#include "Slug.h"

#include <QSet>

namespace tintwick {

namespace {

bool isAllowed(QChar first, NameStart start)
{
    return start == NameStart::Anything || !(first == u'-' || first.isDigit());
}

QStringList slugs(const QList<CapturedColor>& colors, NameStart start)
{
    QStringList names;
    for (const CapturedColor& color : colors) {
        QString name = color.customName ? slugify(*color.customName) : QString();
        if (name.isEmpty()) {
            name = QStringLiteral("color-%1").arg(names.size() + 1);
        } else if (!isAllowed(name.front(), start)) {
            name.prepend(QStringLiteral("color-"));
        }
        names.append(name);
    }
    return names;
}

} // namespace

QStringList uniqueNames(const QList<CapturedColor>& colors, NameStart start)
{
    QStringList names = slugs(colors, start);
    // A number must not make a name that another colour has by itself.
    QSet<QString> taken(names.begin(), names.end());
    QSet<QString> used;
    for (QString& name : names) {
        const QString slug = name;
        for (int number = 2; used.contains(name); ++number) {
            const QString numbered = QStringLiteral("%1-%2").arg(slug).arg(number);
            name = taken.contains(numbered) ? name : numbered;
        }
        taken.insert(name);
        used.insert(name);
    }
    return names;
}

} // namespace tintwick
