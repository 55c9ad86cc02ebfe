#pragma once

namespace tavidoc {

/// What every program does first: opens standard files that are closed, lets writing to a broken pipe or past a limit of
/// the file size fail instead of ending the process, drops warnings of Qt, and sets the locale C, because the
/// user's locale must change nothing. Call it before the application object is created.
void prepareProcess();

} // namespace tavidoc
