#include "host/xml/ut_test_ge_data.h"

#include "host/root/od_string.h"

namespace ut {

CRtClass const* TestGeData::desc()
{
    static CRtClass const s_class("TestGeData", nullptr, nullptr);
    return &s_class;
}

bool TestGeData::write(pugi::xml_node& node) const
{
    pugi::xml_node child = node.append_child(OdString::fromUtf8(isA()->name()).c_str());
    if (!child)
        return false;
    bool const isWritten = writeToXml(child);
    if (!isWritten)
        node.remove_child(child);
    return isWritten;
}

bool TestGeData::readFromXml(pugi::xml_node const&)
{
    return false;
}

bool TestGeData::writeToXml(pugi::xml_node&) const
{
    return false;
}

std::unique_ptr<TestGeData> TestGeData::readObject(pugi::xml_node const& node)
{
    CRtClass const* const cls = CRtClass::find(node.name());
    if (!cls || !cls->createFunction())
        return nullptr;
    std::unique_ptr<TestGeData> datum = cls->createFunction()();
    return datum->readFromXml(node) ? std::move(datum) : nullptr;
}

namespace {
[[maybe_unused]] CRtClass const* const s_record = TestGeData::desc();
}

} // namespace ut
