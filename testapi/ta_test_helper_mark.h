#pragma once

namespace ta {

/// Marker base of test helpers.
class TestHelperMark
{
public:
    virtual ~TestHelperMark();
};

} // namespace ta
