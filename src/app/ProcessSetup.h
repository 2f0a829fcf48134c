#pragma once

namespace tintwick {

/// Gives the process an environment that the libraries can rely on. Call it first in main(), before any thread starts.
///
/// - Descriptors 0, 1 and 2 are open, so that no output goes to a file or connection that got such a number.
/// - Writing to a closed pipe fails instead of ending the process.
/// - XDG variables hold absolute paths only: the base directory rules ignore relative ones, the toolkit uses them.
/// - HOME is set, from the password database if necessary.
void setUpProcess();

/// Only what concerns the folders of the user.
void correctUserFolders();

/// Makes this process do without a session bus that does not answer within a second: the toolkit would wait for it for
/// ever. Call before the bus is used.
void ignoreSilentSessionBus();

} // namespace tintwick
