#pragma once
// Moved into testsupport.h; this name stays only for suites that have not switched yet.
#include "common/testsupport.h"
