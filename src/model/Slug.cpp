#include "Slug.h"

#include <QChar>
#include <QList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>

namespace tintwick {

namespace {

char32_t firstCodePoint(QStringView text)
{
    if (text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate()) {
        return QChar::surrogateToUcs4(text[0], text[1]);
    }
    return text[0].unicode();
}

bool isCased(char32_t character)
{
    return QChar::isUpper(character) || QChar::isLower(character) || QChar::isTitleCase(character);
}

bool isCaseIgnorable(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
    case QChar::Letter_Modifier:
    case QChar::Symbol_Modifier:
        return true;
    default:
        // Punctuation within a word.
        return QStringView(u"'.:\u00B7\u2018\u2019\u2024\u2027")
            .contains(QChar(character > 0xFFFF ? 0 : character));
    }
}

/// The nearest character in a direction that is not case-ignorable is cased.
template <typename Iterator>
bool isCasedFirst(Iterator from, Iterator end)
{
    const auto found = std::find_if(from, end, [](uint character) { return !isCaseIgnorable(character); });
    return found != end && isCased(*found);
}

/// The whole lower-case mapping. QString::toLower() leaves out its one rule that depends on the neighbours, Final_Sigma of
/// the Unicode Standard, section 3.13, and SpecialCasing.txt: a capital sigma at the end of a word becomes a final sigma.
QString toLowerCase(const QString& text)
{
    constexpr uint capitalSigma = 0x03A3;
    constexpr uint finalSigma = 0x03C2;
    QList<uint> characters = text.toUcs4();
    for (auto each = characters.begin(); each != characters.end(); ++each) {
        if (*each == capitalSigma && isCasedFirst(std::make_reverse_iterator(each), characters.rend()) &&
            !isCasedFirst(each + 1, characters.end())) {
            *each = finalSigma;
        }
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size())
        .toLower();
}

bool isKept(QStringView character)
{
    const char32_t base = firstCodePoint(character);
    return QChar::isLetter(base) || QChar::isNumber(base) || character == u"-";
}

} // namespace

QString slugify(const QString& text)
{
    QString joined = toLowerCase(text);
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
