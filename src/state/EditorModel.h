#pragma once

#include <array>
#include <cstdint>

namespace tintwick {

/// The numbers by which the user edits a colour.
enum class EditorModel : std::uint8_t { Oklch, Hsl };
inline constexpr std::array allEditorModels{EditorModel::Oklch, EditorModel::Hsl};

} // namespace tintwick
