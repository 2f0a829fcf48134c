#include "SuggestedName.h"

#include <QTextBoundaryFinder>

namespace tintwick {

QString suggestedName(const QString& stem, const QString& ending)
{
    constexpr qsizetype nameLimit = 255;
    constexpr qsizetype temporaryEnding = 7;
    const qsizetype room = nameLimit - temporaryEnding - ending.toUtf8().size();
    qsizetype size = 0;
    qsizetype end = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, stem);
    for (qsizetype next = finder.toNextBoundary(); next > end; next = finder.toNextBoundary()) {
        size += QStringView(stem).sliced(end, next - end).toUtf8().size();
        if (size > room) {
            break;
        }
        end = next;
    }
    return stem.first(end) + ending;
}

} // namespace tintwick
