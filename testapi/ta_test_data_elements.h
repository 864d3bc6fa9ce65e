#pragma once

// For telling what is wrong in data files: the elements of the classes of data that come with the library.

#include "testapi/ta_expected_element.h"
#include "testapi/ta_host.h"

#include <map>

namespace ta {

class TestDataElements
{
public:
    /// Null for classes of other libraries, whose elements may hold anything, and those that cannot be read.
    ExpectedElement const* of(ut::CRtClass const* cls);

private:
    std::map<ut::CRtClass const*, ExpectedElement> m_known; ///< those that were asked for
};

} // namespace ta
