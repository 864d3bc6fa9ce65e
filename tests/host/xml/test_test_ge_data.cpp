#include "host/root/od_string.h"
#include "host/xml/ut_test_ge_data.h"

#include <cppunit/extensions/HelperMacros.h>

#include <optional>

namespace {

/// A datum of one number, and one derived from it.
class SampleDatum : public ut::TestGeData
{
    UT_DECLARE_TEST_DATA(SampleDatum)

    bool readFromXml(pugi::xml_node const& node) override
    {
        value = node.attribute(L"value").as_int();
        return value != 0;
    }
    bool writeToXml(pugi::xml_node& node) const override
    {
        node.append_attribute(L"value") = value;
        return value != 0;
    }

    int value = 0;
};

class FinerSampleDatum : public SampleDatum
{
    UT_DECLARE_TEST_DATA(FinerSampleDatum)
};

UT_DEFINE_TEST_DATA(SampleDatum, ut::TestGeData)
UT_DEFINE_TEST_DATA(FinerSampleDatum, SampleDatum)

class TestGeDataTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestGeDataTest);
    CPPUNIT_TEST(recordsAreFoundWhileTheyExist);
    CPPUNIT_TEST(secondOfOneNameIsRefused);
    CPPUNIT_TEST(kinds);
    CPPUNIT_TEST(readsObjectsByName);
    CPPUNIT_TEST(writesWholeElementsOnly);
    CPPUNIT_TEST_SUITE_END();

    void recordsAreFoundWhileTheyExist()
    {
        CPPUNIT_ASSERT(SampleDatum::desc() == ut::CRtClass::find(L"SampleDatum"));
        std::optional<ut::CRtClass> passing(std::in_place, "Passing", nullptr, nullptr);
        CPPUNIT_ASSERT(&*passing == ut::CRtClass::find(L"Passing"));
        passing.reset();
        CPPUNIT_ASSERT(!ut::CRtClass::find(L"Passing"));
    }

    void secondOfOneNameIsRefused()
    {
        {
            ut::CRtClass const second("SampleDatum", nullptr, nullptr);
            CPPUNIT_ASSERT(SampleDatum::desc() == ut::CRtClass::find(L"SampleDatum"));
        }
        CPPUNIT_ASSERT(SampleDatum::desc() == ut::CRtClass::find(L"SampleDatum"));
    }

    void kinds()
    {
        FinerSampleDatum const datum;
        ut::TestGeData const& base = datum;
        CPPUNIT_ASSERT(base.isA() == FinerSampleDatum::desc());
        CPPUNIT_ASSERT(base.isKindOf(SampleDatum::desc()));
        CPPUNIT_ASSERT(base.isKindOf(ut::TestGeData::desc()));
        CPPUNIT_ASSERT(!SampleDatum().isKindOf(FinerSampleDatum::desc()));
        CPPUNIT_ASSERT_EQUAL(std::string("FinerSampleDatum"), std::string(base.isA()->name()));
    }

    void readsObjectsByName()
    {
        pugi::xml_document document;
        CPPUNIT_ASSERT(
            document.load_string(L"<d><FinerSampleDatum value='7'/><SampleDatum value='0'/><TestGeData/>"
                                 L"<Unknown/><SampleDatum\u0433 value='7'/>text</d>"));
        pugi::xml_node node = document.first_child().first_child();
        std::unique_ptr<ut::TestGeData> const datum = ut::TestGeData::readObject(node);
        CPPUNIT_ASSERT(datum && datum->isA() == FinerSampleDatum::desc());
        CPPUNIT_ASSERT_EQUAL(7, static_cast<FinerSampleDatum const&>(*datum).value);
        while ((node = node.next_sibling()))
            CPPUNIT_ASSERT_MESSAGE(OdString(node.name()).toUtf8(), !ut::TestGeData::readObject(node));
        CPPUNIT_ASSERT(!ut::TestGeData::readObject(node));
    }

    void writesWholeElementsOnly()
    {
        pugi::xml_document document;
        pugi::xml_node root = document.append_child(L"d");
        FinerSampleDatum datum;
        CPPUNIT_ASSERT(!datum.write(root));
        CPPUNIT_ASSERT(!root.first_child());
        datum.value = 7;
        CPPUNIT_ASSERT(datum.write(root));
        CPPUNIT_ASSERT(root.child(L"FinerSampleDatum").attribute(L"value").as_int() == 7);
        CPPUNIT_ASSERT(!ut::TestGeData().write(root));
        CPPUNIT_ASSERT(!root.child(L"TestGeData"));
        pugi::xml_node none;
        CPPUNIT_ASSERT(!datum.write(none));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestGeDataTest);

} // namespace
