#include "FileChooser.h"

#include "Portal.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QFile>
#include <QList>
#include <QStringList>
#include <QUrl>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

enum PatternKind : unsigned { Glob = 0 };

/// (us)
struct Pattern
{
    unsigned kind = Glob;
    QString text;
};

/// (sa(us))
struct Filter
{
    QString name;
    QList<Pattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Pattern& pattern)
{
    argument.beginStructure();
    argument << pattern.kind << pattern.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Pattern& pattern)
{
    argument.beginStructure();
    argument >> pattern.kind >> pattern.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const Filter& filter)
{
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Filter& filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

enum class Kinds { One, Any };

QVariant filtersFor(const FileChooser::Question& question, Kinds kinds)
{
    qDBusRegisterMetaType<Pattern>();
    qDBusRegisterMetaType<QList<Pattern>>();
    qDBusRegisterMetaType<Filter>();
    qDBusRegisterMetaType<QList<Filter>>();
    QList<Pattern> patterns;
    for (const QString& suffix : question.suffixes) {
        patterns.append({Glob, u"*."_s + suffix});
    }
    QList<Filter> filters{{question.kind, patterns}};
    if (kinds == Kinds::Any) {
        filters.append({FileChooser::tr("All Files"), {{Glob, u"*"_s}}});
    }
    return QVariant::fromValue(filters);
}

QVariantMap optionsFor(const FileChooser::Question& question, const QString& token, Kinds kinds)
{
    QVariantMap options{
        {u"handle_token"_s, token}, {u"modal"_s, false}, {u"filters"_s, filtersFor(question, kinds)}};
    if (!question.folder.isEmpty()) {
        // The bytes of the path, with a zero at the end.
        options.insert(u"current_folder"_s, QFile::encodeName(question.folder).append('\0'));
    }
    return options;
}

} // namespace

FileChooser::FileChooser(QObject* parent)
    : PortalRequest(parent)
{
}

void FileChooser::saveFile(const Question& question)
{
    send([question](const QString& token) {
        QVariantMap options = optionsFor(question, token, Kinds::One);
        options.insert(u"current_name"_s, question.suggestedName);
        return portal::call(u"org.freedesktop.portal.FileChooser"_s, u"SaveFile"_s)
               << question.parentWindow << question.title << options;
    });
}

void FileChooser::openFiles(const Question& question)
{
    send([question](const QString& token) {
        QVariantMap options = optionsFor(question, token, Kinds::Any);
        options.insert(u"multiple"_s, true);
        return portal::call(u"org.freedesktop.portal.FileChooser"_s, u"OpenFile"_s)
               << question.parentWindow << question.title << options;
    });
}

void FileChooser::takeAnswer(Answer answer, const QVariantMap& results)
{
    QStringList paths;
    for (const QString& address : results.value(u"uris"_s).toStringList()) {
        if (const QUrl url(address); url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    if (answer == Answer::Success && !paths.isEmpty()) {
        Q_EMIT chosen(paths);
    } else {
        Q_EMIT cancelled();
    }
}

} // namespace tintwick
