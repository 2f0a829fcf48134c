#include "Theme.h"

#include <QFontDatabase>
#include <QStringList>

namespace tintwick::theme {

namespace {

using namespace Qt::StringLiterals;

/// Without a desktop Qt returns the generic name of a family, which the user did not choose.
bool isGeneric(const QString& family)
{
    static const QStringList generic{u"sans"_s,  u"sans serif"_s, u"sans-serif"_s, u"system-ui"_s,
                                     u"fixed"_s, u"mono"_s,       u"monospace"_s,  u"helvetica"_s};
    return family.isEmpty() || generic.contains(family.toLower());
}

QStringList families(QFontDatabase::SystemFont role, const QStringList& fallbacks)
{
    const QString named = QFontDatabase::systemFont(role).family();
    return isGeneric(named) ? fallbacks : QStringList(named) + fallbacks;
}

QFont fontOf(const QStringList& families, QFont::StyleHint hint, int size, QFont::Weight weight)
{
    QFont result;
    result.setFamilies(families);
    result.setStyleHint(hint, QFont::PreferAntialias);
    // With full hinting, the widths of glyphs depend on the scale.
    result.setHintingPreference(QFont::PreferVerticalHinting);
    result.setPixelSize(size);
    result.setWeight(weight);
    return result;
}

} // namespace

Color::Color(const QColor& fixed)
    : m_light{fixed.redF(), fixed.greenF(), fixed.blueF(), fixed.alphaF()}
    , m_dark{m_light}
{
}

QColor Color::in(Scheme scheme) const
{
    const Components& value = scheme == Scheme::Light ? m_light : m_dark;
    return QColor::fromRgbF(static_cast<float>(value.red), static_cast<float>(value.green),
                            static_cast<float>(value.blue), static_cast<float>(value.alpha));
}

QFont font(int size, QFont::Weight weight)
{
    static const QStringList names = families(QFontDatabase::GeneralFont, {u"Inter"_s, u"sans-serif"_s});
    return fontOf(names, QFont::SansSerif, size, weight);
}

QFont monospacedFont(int size, QFont::Weight weight)
{
    static const QStringList names =
        families(QFontDatabase::FixedFont, {u"JetBrains Mono"_s, u"monospace"_s});
    return fontOf(names, QFont::Monospace, size, weight);
}

QFont headline()
{
    return font(13, QFont::Bold);
}

QFont caption()
{
    return font(10);
}

} // namespace tintwick::theme
