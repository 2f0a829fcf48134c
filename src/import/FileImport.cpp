#include "FileImport.h"

#include "AdobeReaders.h"
#include "GimpPaletteReader.h"
#include "JsonReader.h"
#include "PictureColors.h"
#include "StyleSheetReader.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 largestFile = 32 * 1024 * 1024;
constexpr qsizetype largestText = 4 * 1024 * 1024;
constexpr qsizetype mostColors = 2000;

Import readPicture(QBuffer& buffer)
{
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        return ImportProblem{u"the picture cannot be read: %1"_s.arg(reader.errorString())};
    }
    return ImportedPalette{{}, colorsOfPicture(picture)};
}

Import readText(const QByteArray& bytes)
{
    if (bytes.size() > largestText) {
        return ImportProblem{u"the file is too large"_s};
    }
    const QByteArray text = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    if (isGimpPalette(text)) {
        return readGimpPalette(text);
    }
    const QByteArray start = text.left(4096).trimmed();
    return start.startsWith('{') || start.startsWith('[') ? readJsonPalette(text) : readStyleSheet(text);
}

Import readAnything(const QByteArray& bytes)
{
    if (isAdobeSwatchExchange(bytes)) {
        return readAdobeSwatchExchange(bytes);
    }
    if (isAdobeColorTable(bytes)) {
        return readAdobeColorTable(bytes);
    }
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    if (!QImageReader::imageFormat(&buffer).isEmpty()) {
        return readPicture(buffer);
    }
    return readText(bytes);
}

} // namespace

QStringList importedSuffixes()
{
    return u"gpl ase aco json css scss png jpg jpeg webp gif bmp svg"_s.split(u' ');
}

Import importBytes(const QByteArray& bytes, const QString& name)
{
    Import result = readAnything(bytes);
    if (auto* palette = std::get_if<ImportedPalette>(&result)) {
        if (palette->colors.isEmpty()) {
            return ImportProblem{u"there are no colors in it"_s};
        }
        if (palette->colors.size() > mostColors) {
            return ImportProblem{u"it has more than %1 colors"_s.arg(mostColors)};
        }
        palette->name = palette->name.isEmpty() ? name : palette->name;
    }
    return result;
}

Import importFile(const QString& path)
{
    QFile file(path);
    // Reading anything else, such as a pipe, could wait for ever.
    if (QFileInfo info(path); info.exists() && !info.isFile()) {
        return ImportProblem{u"this is not a file"_s};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return ImportProblem{file.errorString()};
    }
    if (file.size() > largestFile) {
        return ImportProblem{u"the file is too large"_s};
    }
    return importBytes(file.readAll(), QFileInfo(path).completeBaseName());
}

} // namespace tintwick
