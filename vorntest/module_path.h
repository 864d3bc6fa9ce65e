#pragma once

#include "vorntest/tests_config.h"

#include <string>

namespace vorntest {

/// The file of a test module: a plain name stands for NAME.so in the folder "vorn" beside this library, a path is
/// relative to the configuration's basePath; ".so" is added where it is missing. The file need not exist.
std::wstring modulePath(ModuleConfig const& module, TestsConfig const& config);

} // namespace vorntest
