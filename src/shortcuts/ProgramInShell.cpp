#include "ProgramInShell.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace tintwick {

QString programInShell()
{
    const QFileInfo self(QCoreApplication::applicationFilePath());
    const QFileInfo found(QStandardPaths::findExecutable(self.fileName()));
    return found.canonicalFilePath() == self.canonicalFilePath() ? self.fileName() : self.filePath();
}

} // namespace tintwick
