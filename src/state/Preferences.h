#pragma once

#include "EditorModel.h"
#include "KeyNames.h"
#include "RepeatedPick.h"

#include <QAnyStringView>
#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariant>

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace tintwick {

enum class ColorSchemeChoice { Auto, Light, Dark };
/// The choice that follows in the order auto, light, dark, auto.
[[nodiscard]] ColorSchemeChoice next(ColorSchemeChoice choice);
/// "auto", "light" or "dark", as stored.
[[nodiscard]] QString storedWord(ColorSchemeChoice choice);

enum class LoupeShape { Square, Circle };
inline constexpr std::array allLoupeShapes{LoupeShape::Square, LoupeShape::Circle};

enum class LoupeSize { Small, Medium, Large };
inline constexpr std::array allLoupeSizes{LoupeSize::Small, LoupeSize::Medium, LoupeSize::Large};
/// Side of the loupe's square of enlarged pixels, in points.
[[nodiscard]] constexpr double loupeSide(LoupeSize size)
{
    constexpr std::array sides{100.0, 130.0, 160.0};
    return sides.at(static_cast<std::size_t>(size));
}

/// What the loupe says below the hexadecimal code: the name of the colour, the text that a pick copies, or both.
enum class LoupeCaption { Name, Text, Both };
inline constexpr std::array allLoupeCaptions{LoupeCaption::Name, LoupeCaption::Text, LoupeCaption::Both};

/// The sampling radii that the settings offer, in physical pixels around the centre one.
inline constexpr std::array offeredLoupeRadii{4, 7, 11};
inline constexpr int defaultLoupeRadius = 7;

/// The user's choices that are stored outside the data file, in $XDG_CONFIG_HOME/Tintwick/Tintwick.conf. A key that is
/// missing there is read from the system-wide file. A value that is missing, mistyped or unknown reads as the default;
/// an unknown value stays stored until it is set.
///
/// The object holds all values: a getter reads no file. A setter writes the file before it returns; the folder and the file
/// are private to the user if it creates them. Changes that other programs make to the user's file are noticed in the event
/// loop.
class Preferences final : public QObject
{
    Q_OBJECT

public:
    explicit Preferences(QObject* parent = nullptr);
    /// The file that the user's choices are stored in.
    [[nodiscard]] static QString pathOfUser();
    /// Uses another file, without system-wide values.
    explicit Preferences(const QString& path, QObject* parent = nullptr);

    /// Why a choice was not stored: one sentence for the user, empty if all is well.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    /// The folder of the user's file.
    [[nodiscard]] QString folder() const;

    [[nodiscard]] ColorSchemeChoice colorScheme() const { return m_values.colorScheme; }
    void setColorScheme(ColorSchemeChoice choice);

    [[nodiscard]] LoupeShape loupeShape() const { return m_values.loupeShape; }
    void setLoupeShape(LoupeShape shape);

    [[nodiscard]] LoupeSize loupeSize() const { return m_values.loupeSize; }
    void setLoupeSize(LoupeSize size);

    /// Sampling radius at the start of a pick, in physical pixels around the centre one; at least 1, without an upper
    /// bound.
    [[nodiscard]] int loupeRadius() const { return m_values.loupeRadius; }
    /// A radius below 1 reads as the default.
    void setLoupeRadius(int radius);

    [[nodiscard]] LoupeCaption loupeCaption() const { return m_values.loupeCaption; }
    void setLoupeCaption(LoupeCaption caption);

    [[nodiscard]] KeyNames keyNames() const { return m_values.keyNames; }
    void setKeyNames(KeyNames names);

    [[nodiscard]] RepeatedPick repeatedPick() const { return m_values.repeatedPick; }
    void setRepeatedPick(RepeatedPick effect);

    [[nodiscard]] EditorModel editorModel() const { return m_values.editorModel; }
    void setEditorModel(EditorModel model);

    /// The stored text of a shortcut, by its name; empty when the stored value is not one text, none when nothing is
    /// stored.
    [[nodiscard]] std::optional<QString> shortcutText(const QString& name) const;
    /// None removes the user's value, so that a system-wide one applies again.
    void setShortcutText(const QString& name, const std::optional<QString>& text);

Q_SIGNALS:
    void colorSchemeChanged();
    /// After a change of shape, size, radius or caption.
    void loupeChanged();
    void keyNamesChanged();
    void repeatedPickChanged();
    void editorModelChanged();
    void shortcutChanged(const QString& name);
    void problemChanged();

private:
    struct Values
    {
        ColorSchemeChoice colorScheme = ColorSchemeChoice::Auto;
        LoupeShape loupeShape = LoupeShape::Square;
        LoupeSize loupeSize = LoupeSize::Medium;
        int loupeRadius = defaultLoupeRadius;
        LoupeCaption loupeCaption = LoupeCaption::Name;
        KeyNames keyNames = KeyNames::Signs;
        RepeatedPick repeatedPick = RepeatedPick::Add;
        EditorModel editorModel = EditorModel::Oklch;
        QMap<QString, QString> shortcutTexts;
    };

    using Open = std::function<std::unique_ptr<QSettings>()>;
    Preferences(QString path, Open open, QObject* parent);

    [[nodiscard]] QVariant storedValue(QAnyStringView key) const;
    /// Opens the file if it is one, or closes it. Opening anything else, such as a pipe, could wait for ever.
    void openOrClose();
    /// Calls `change` and writes the file, unless something prevents that.
    void write(const std::function<void(QSettings&)>& change);
    [[nodiscard]] QString lockPath() const;
    /// A program that was killed while it wrote leaves an empty lock. Only one that is older than a second counts.
    void removeAbandonedLock() const;
    /// Waits for the lock of the file for about a second, whereas QSettings waits without a limit.
    [[nodiscard]] bool canLock() const;
    void setProblem(const QString& problem);
    void watchFile();
    void readAgain();
    [[nodiscard]] Values storedValues() const;
    void store(QAnyStringView key, const QVariant& value);
    void signalChanges(const Values& before);

    QString m_path;
    Open m_open;
    /// Null while something else has the file's name.
    std::unique_ptr<QSettings> m_settings;
    QString m_problem;
    QFileSystemWatcher m_watcher;
    Values m_values;
};

} // namespace tintwick
