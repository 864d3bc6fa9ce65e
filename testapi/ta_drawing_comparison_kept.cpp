// What is kept beside the fields of an object: tags that no field takes, extended data, the extension dictionary.
#include "testapi/ta_drawing_comparison_facts.h"
#include "testapi/ta_drawing_comparison_fields.h"

namespace ta {

namespace {

OdDbObjectExtras const& extrasOf(OdDbObject const& object)
{
    static OdDbObjectExtras const s_none = {};
    return object.extras() ? *object.extras() : s_none;
}

using DataByApplication = std::map<std::string, OdDbTagList>;

DataByApplication dataByApplication(OdDbTagList const& data)
{
    constexpr int kApplication = 1001;
    DataByApplication result;
    OdDbTagList* part = nullptr;
    for (OdDbTag const tag : data) {
        if (tag.code == kApplication)
            part = &result[std::string(tag.text)];
        else if (part)
            part->put(tag);
    }
    return result;
}

using SectionKey = std::pair<int, std::string>;

std::map<SectionKey, OdDbTagList> sectionsByPlace(OdDbObjectExtras const& extras)
{
    std::map<SectionKey, OdDbTagList> result;
    for (OdDbObjectExtras::Section const& section : extras.sections)
        section.tags.writeTo(result[{section.group, section.marker}]);
    return result;
}

wchar_t const* presence(bool isThere)
{
    return isThere ? L"present" : L"none";
}

} // namespace

bool FieldComparison::haveIdenticalExtras(OdDbObject const& object1, OdDbObject const& object2) const
{
    if (!object1.extras() && !object2.extras())
        return true;
    OdDbObjectExtras const &extras1 = extrasOf(object1), &extras2 = extrasOf(object2);
    if (extras1.sections.size() != extras2.sections.size() ||
        object1.extensionDictionary().isNull() != object2.extensionDictionary().isNull())
        return false;
    for (std::size_t i = 0; i < extras1.sections.size(); ++i) {
        OdDbObjectExtras::Section const &section1 = extras1.sections[i], &section2 = extras2.sections[i];
        if (section1.group != section2.group || section1.marker != section2.marker ||
            !m_tags.areIdentical(section1.tags, section2.tags))
            return false;
    }
    return m_tags.areIdentical(extras1.applicationGroups, extras2.applicationGroups) &&
           m_tags.areIdentical(extras1.extendedData, extras2.extendedData);
}

void FieldComparison::compareExtras(Pair const& pair)
{
    OdDbObjectExtras const &extras1 = extrasOf(pair.object1), &extras2 = extrasOf(pair.object2);
    bool const isScale = pair.fields == kWithoutRows && isAnnotativeTold(pair.object1, pair.object2);
    bool const hasFirst = !pair.object1.extensionDictionary().isNull();
    bool const hasSecond = !pair.object2.extensionDictionary().isNull();
    if (hasFirst != hasSecond && !isScale) // what is annotative keeps its scales there
        tell(pair, L"extension dictionary", presence(hasFirst), presence(hasSecond));
    compareKeptTags(pair, extras1.applicationGroups, extras2.applicationGroups,
                    [](int code) { return odFormat(L"group %d of an application", code); });
    compareKeptSections(pair, extras1, extras2);
    compareExtendedData(pair, extras1.extendedData, extras2.extendedData);
}

void FieldComparison::compareKeptSections(Pair const& pair, OdDbObjectExtras const& extras1,
                                          OdDbObjectExtras const& extras2)
{
    OdDbTagList const none;
    forEachKey(sectionsByPlace(extras1), sectionsByPlace(extras2),
               [&](SectionKey const& key, OdDbTagList const* tags1, OdDbTagList const* tags2) {
                   std::string const& marker = key.second;
                   if (!marker.empty() && (!tags1 || !tags2))
                       tell(pair, L"section " + OdString::fromUtf8(marker), presence(tags1), presence(tags2));
                   else
                       compareKeptTags(pair, tags1 ? *tags1 : none, tags2 ? *tags2 : none,
                                       [&](int code) { return fieldName(pair.object1, marker, code); });
               });
}

void FieldComparison::compareExtendedData(Pair const& pair, OdDbTagList const& data1, OdDbTagList const& data2)
{
    if (m_tags.areIdentical(data1, data2))
        return;
    bool const isAnnotative = pair.fields == kWithoutRows && isAnnotativeTold(pair.object1, pair.object2);
    forEachKey(dataByApplication(data1), dataByApplication(data2),
               [&](std::string const& application, OdDbTagList const* tags1, OdDbTagList const* tags2) {
                   if (isAnnotative && application == "AcadAnnotative")
                       return;
                   OdString const name = L"extended data of " + OdString::fromUtf8(application);
                   if (!tags1 || !tags2)
                       tell(pair, name, presence(tags1), presence(tags2));
                   else
                       compareKeptTags(pair, *tags1, *tags2,
                                       [&](int code) { return name + odFormat(L", group %d", code); });
               });
}

void FieldComparison::compareKeptTags(Pair const& pair, OdDbTagList const& tags1, OdDbTagList const& tags2,
                                      std::function<OdString(int code)> const& nameOf)
{
    if (m_tags.areIdentical(tags1, tags2))
        return;
    m_tags1.clear();
    m_tags2.clear();
    tags1.writeTo(m_tags1);
    tags2.writeTo(m_tags2);
    tellTags(pair, nameOf);
}

} // namespace ta
