#pragma once

#include "fuzz/editor_world.h"

namespace brindle {

/// A user in the window of the home directory: walks through drives and folders, makes some, and ends it with
/// Done or Cancel.
void RunHomeDirectory(EditorWorld& world, Decisions& decisions);

} // namespace brindle
