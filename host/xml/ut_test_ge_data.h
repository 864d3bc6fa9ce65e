#pragma once

// For authors of test data: the base of classes that hold one datum of a data file each, an element named after
// its class. The classes that come with the test-support library are in testapi/ta_test_data.h.

#include "host/ut/ut_rt_class.h"

#include <pugixml.hpp>

namespace ut {

/// One datum. Reading is false for an element that is not fit for it, and leaves no half-made datum behind;
/// writing is false for a datum that could not be read again.
class TestGeData
{
public:
    TestGeData() = default;
    TestGeData(TestGeData const&) = delete;
    TestGeData& operator=(TestGeData const&) = delete;
    virtual ~TestGeData() = default;

    static CRtClass const* desc();
    /// The exact class.
    virtual CRtClass const* isA() const { return desc(); }
    /// Appends an element named after the class and writes the datum into it; the element is removed again when
    /// that fails.
    virtual bool write(pugi::xml_node& node) const;
    /// Takes the datum from the attributes and children of an element. False here.
    virtual bool readFromXml(pugi::xml_node const& node);
    /// Writes the datum as attributes and children of an element. False here.
    virtual bool writeToXml(pugi::xml_node& node) const;

    bool isKindOf(CRtClass const* cls) const { return isA()->isKindOf(cls); }

    /// A new object of the class that the element is named after, read from it; null when there is no such class
    /// or it cannot be read.
    static std::unique_ptr<TestGeData> readObject(pugi::xml_node const& node);
};

} // namespace ut

/// In the class body: the class record, the exact class and the factory that the record holds.
#define UT_DECLARE_TEST_DATA(Class)                                                                               \
public:                                                                                                           \
    static ut::CRtClass const* desc();                                                                            \
    static std::unique_ptr<ut::TestGeData> create()                                                               \
    {                                                                                                             \
        return std::make_unique<Class>();                                                                         \
    }                                                                                                             \
    ut::CRtClass const* isA() const override                                                                      \
    {                                                                                                             \
        return Class::desc();                                                                                     \
    }

/// In the source file, in the namespace of the class: the record, which exists as soon as the library is loaded.
#define UT_DEFINE_TEST_DATA(Class, Parent)                                                                        \
    ut::CRtClass const* Class::desc()                                                                             \
    {                                                                                                             \
        static ut::CRtClass const s_class(#Class, Parent::desc(), &Class::create);                                \
        return &s_class;                                                                                          \
    }                                                                                                             \
    [[maybe_unused]] static ut::CRtClass const* const s_record##Class = Class::desc();
