#pragma once

#include <xkbcommon/xkbcommon.h>

namespace tintwick {

/// Releases xkbcommon objects.
struct XkbUnref
{
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

} // namespace tintwick
