#pragma once
// For the tests of screens, which all stand on a whole session in memory.
#include "Tests/Support/Precompiled.h"
#include "Tests/Support/TestEnvironment.h"
