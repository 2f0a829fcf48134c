#include "Slug.h"

#include <QChar>
#include <QTextBoundaryFinder>

namespace tintwick {

namespace {

char32_t firstCodePoint(QStringView text)
{
    if (text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate()) {
        return QChar::surrogateToUcs4(text[0], text[1]);
    }
    return text[0].unicode();
}

bool isKept(QStringView character)
{
    const char32_t base = firstCodePoint(character);
    return QChar::isLetter(base) || QChar::isNumber(base) || character == u"-";
}

} // namespace

QString slugify(const QString& text)
{
    QString joined = text.toLower();
    for (QChar& unit : joined) {
        if (unit.isSpace()) {
            unit = u'-';
        }
    }

    QString slug;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, joined);
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        const QStringView character = QStringView(joined).sliced(start, end - start);
        if (isKept(character)) {
            slug += character;
        }
        start = end;
    }
    return slug;
}

} // namespace tintwick
