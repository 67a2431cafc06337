#pragma once

namespace oakfen {

/// Runs the program with the given arguments until the person quits; returns the exit code.
[[nodiscard]] int runApplication(int& argumentCount, char** arguments);

} // namespace oakfen
