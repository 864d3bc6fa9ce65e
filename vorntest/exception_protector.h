#pragma once

#include <cppunit/Protector.h>

namespace vorntest {

/// Reports exceptions that CppUnit does not understand with their text: the drawing database's errors with
/// description and code, and thrown texts (C strings and string objects, narrow or wide). Push it onto a
/// TestResult.
class ExceptionProtector : public CppUnit::Protector
{
public:
    bool protect(CppUnit::Functor const& functor, CppUnit::ProtectorContext const& context) override;
};

} // namespace vorntest
