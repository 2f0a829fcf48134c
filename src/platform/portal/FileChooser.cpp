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

QVariant filtersFor(const FileChooser::Question& question)
{
    qDBusRegisterMetaType<Pattern>();
    qDBusRegisterMetaType<QList<Pattern>>();
    qDBusRegisterMetaType<Filter>();
    qDBusRegisterMetaType<QList<Filter>>();
    return QVariant::fromValue(QList<Filter>{{question.kind, {{Glob, u"*."_s + question.suffix}}}});
}

QVariantMap optionsFor(const FileChooser::Question& question, const QString& token)
{
    QVariantMap options{{u"handle_token"_s, token},
                        {u"modal"_s, false},
                        {u"current_name"_s, question.suggestedName},
                        {u"filters"_s, filtersFor(question)}};
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
        return portal::call(u"org.freedesktop.portal.FileChooser"_s, u"SaveFile"_s)
               << question.parentWindow << question.title << optionsFor(question, token);
    });
}

void FileChooser::takeAnswer(Answer answer, const QVariantMap& results)
{
    const QUrl url(results.value(u"uris"_s).toStringList().value(0));
    if (answer == Answer::Success && url.isLocalFile()) {
        Q_EMIT chosen(url.toLocalFile());
    } else {
        Q_EMIT cancelled();
    }
}

} // namespace tintwick
