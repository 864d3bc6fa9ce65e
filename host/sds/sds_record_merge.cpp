#include "host/sds/sds_record_merge.h"

#include "host/db/filer/od_db_embedded.h"

#include <algorithm>
#include <map>
#include <set>

namespace ca {
namespace {

constexpr int kType = 0;
constexpr int kMarker = 100;
constexpr int kBraces = 102;
constexpr int kFirstExtendedData = 1000;
constexpr int kApplication = 1001;
constexpr std::string_view kEntityMarker = "AcDbEntity";
constexpr int kPropertyCodes[] = {8, 6, 62, 420, 370, 48, 60, 347, 284, 440, 430, 390};

/// Codes of one section that describe a list together: the values of each member stand behind its first one.
struct MemberList
{
    std::string_view marker;
    int leader;
    std::vector<int> others;
    bool isOneValue; ///< pieces of one text: naming some replaces all
};
std::vector<MemberList> const& memberLists()
{
    static std::vector<MemberList> const s_lists = {
        {"AcDbPolyline", 10, {40, 41, 42, 91}, false},
        {"AcDbMText", 1, {3}, true},
    };
    return s_lists;
}

/// Codes of one section that say one value in two ways: the one that stands last counts.
struct Alternatives
{
    std::string_view marker;
    int codes[2];
};
constexpr Alternatives kAlternatives[] = {{"AcDbMText", {11, 50}}};

/// One value: a tag, or the coordinates of a point.
using Value = OdDbTagList;
struct Item
{
    int code;
    Value value;
};
using Items = std::vector<Item>;

/// What stands behind one marker, or behind it and the same one again.
struct Section
{
    std::string marker; ///< empty in front of all markers
    int markerCode;
    Items items;
};

struct Record
{
    std::vector<Section> sections; ///< in front the one before all markers: what says where the entity stands
    std::map<OdString, OdDbTagList> extendedData; ///< by application, in upper case
    std::vector<OdString> applications;           ///< in order
};

bool isNextCoordinate(Items const& items, OdDbTag const& tag)
{
    if (items.empty() || tag.kind != OdDbTagKind::kReal ||
        restypeToResvalType(static_cast<short>(items.back().code)) != RT3DPOINT)
        return false;
    auto const count = std::distance(items.back().value.begin(), items.back().value.end());
    return count < 3 && tag.code == items.back().code + 10 * static_cast<int>(count);
}

/// Marker tags begin sections; "101" is the marker of embedded objects.
bool isMarker(OdDbTag const& tag)
{
    return tag.code == kMarker || tag.is(kOdDbEmbeddedCode, kOdDbEmbeddedMarker);
}

Record parse(OdDbTagList const& tags)
{
    Record record;
    record.sections.push_back({{}, kMarker, {}});
    OdString application;
    for (OdDbTag const tag : tags) {
        if (tag.code >= kFirstExtendedData) {
            if (tag.code == kApplication) {
                application = OdString::fromUtf8(tag.text).upper();
                if (record.extendedData.try_emplace(application).second)
                    record.applications.push_back(application);
            }
            record.extendedData[application].put(tag);
        } else if (isMarker(tag)) {
            if (tag.text != record.sections.back().marker)
                record.sections.push_back({std::string(tag.text), tag.code, {}});
        } else if (tag.code != kType) {
            Items& items = record.sections.back().items;
            if (!isNextCoordinate(items, tag))
                items.push_back({tag.code, {}});
            items.back().value.put(tag);
        }
    }
    return record;
}

std::size_t countOf(Items const& items, int code)
{
    return static_cast<std::size_t>(std::ranges::count(items, code, &Item::code));
}

/// The changes of one section.
class SectionMerge
{
public:
    SectionMerge(Section& present, Items const& changes, OdDbDatabase& database)
        : m_present(present), m_changes(changes), m_database(database)
    {
        auto const& lists = memberLists();
        auto const it = std::ranges::find(lists, present.marker, &MemberList::marker);
        m_list = it == lists.end() ? nullptr : &*it;
        for (Item const& item : changes)
            m_named.insert(item.code);
    }

    bool merge()
    {
        if (m_named.empty())
            return true;
        dropAlternatives();
        if (mustReplaceInOrder())
            return replaceInOrder();
        replaceOneByOne();
        return true;
    }

private:
    bool isOfList(int code) const
    {
        return m_list &&
               (code == m_list->leader || std::ranges::find(m_list->others, code) != m_list->others.end());
    }
    bool namesList() const
    {
        return std::ranges::any_of(m_named, [this](int code) { return isOfList(code); });
    }

    /// What is said in the other way, or in the other order, would go on to count.
    void dropAlternatives()
    {
        auto const alternatives = std::ranges::find(kAlternatives, m_present.marker, &Alternatives::marker);
        if (alternatives == std::end(kAlternatives))
            return;
        auto const isOne = [&](Item const& item) {
            return item.code == alternatives->codes[0] || item.code == alternatives->codes[1];
        };
        auto const codesIn = [&](Items const& items) {
            std::vector<int> codes;
            for (Item const& item : items)
                if (isOne(item))
                    codes.push_back(item.code);
            return codes;
        };
        std::vector<int> const changed = codesIn(m_changes);
        if (!changed.empty() && changed != codesIn(m_present.items))
            std::erase_if(m_present.items, isOne);
    }

    bool mustReplaceInOrder() const
    {
        if (m_list && m_list->isOneValue && namesList())
            return true;
        return std::ranges::any_of(m_named, [this](int code) {
            std::size_t const before = countOf(m_present.items, code);
            return before == 0 ? isOfList(code) : before != countOf(m_changes, code);
        });
    }

    /// The groups of the list, in its order, where the first one of those stood that they replace.
    bool replaceInOrder()
    {
        bool const isList = namesList();
        if (isList && !m_list->isOneValue && !m_named.contains(m_list->leader))
            return false;
        auto const isReplaced = [&](Item const& item) {
            return m_named.contains(item.code) || (isList && isOfList(item.code));
        };
        Items& items = m_present.items;
        auto const first = std::ranges::find_if(items, isReplaced) - items.begin();
        std::erase_if(items, isReplaced);
        items.insert(items.begin() + first, m_changes.begin(), m_changes.end());
        return true;
    }

    void replaceOneByOne()
    {
        std::map<int, std::size_t> next; // where to look on for the present items of a code
        for (Item const& item : m_changes) {
            std::size_t& at = next[item.code];
            while (at < m_present.items.size() && m_present.items[at].code != item.code)
                ++at;
            if (at == m_present.items.size())
                m_present.items.push_back(item);
            else if (Item& place = m_present.items[at]; !saysTheSame(place, item))
                place = item;
            ++at;
        }
    }

    /// Lists say less than files: what they say again stays as the file has it.
    bool saysTheSame(Item const& present, Item const& change) const
    {
        RbListPtr const shown = chainOf(present.value, m_database);
        std::optional<SdsRecord> const again = shown ? recordOf(shown.get(), m_database) : std::nullopt;
        return again && again->tags == change.value;
    }

    Section& m_present;
    Items const& m_changes;
    OdDbDatabase& m_database;
    MemberList const* m_list;
    std::set<int> m_named;
};

/// Puts the items of the changes to the sections of the present record to which they belong.
class SectionFinder
{
public:
    SectionFinder(Record const& present, bool isKept) : m_present(present), m_isKept(isKept)
    {
        for (Section const& section : present.sections) {
            std::set<int>& codes = m_codes.emplace_back();
            for (Item const& item : section.items)
                codes.insert(item.code);
        }
    }

    std::size_t find(std::string_view marker, int code) const
    {
        auto const& sections = m_present.sections;
        auto const named =
            static_cast<std::size_t>(std::ranges::find(sections, marker, &Section::marker) - sections.begin());
        bool const isNamed = !marker.empty() && named != sections.size();
        if (isNamed && (m_isKept || m_codes[named].contains(code)))
            return named;
        for (std::size_t i = 1; i < sections.size(); ++i)
            if (sections[i].markerCode == kMarker && m_codes[i].contains(code))
                return i;
        if (isNamed)
            return named;
        bool const isProperty = std::ranges::find(kPropertyCodes, code) != std::end(kPropertyCodes);
        for (std::size_t i = sections.size(); --i > 0;)
            if (sections[i].markerCode == kMarker && (!isProperty || sections[i].marker == kEntityMarker))
                return i;
        return 0;
    }

private:
    Record const& m_present;
    bool m_isKept;
    std::vector<std::set<int>> m_codes; ///< of each section
};

OdDbTagList written(Record const& record)
{
    OdDbTagList tags;
    for (Section const& section : record.sections) {
        if (!section.marker.empty())
            tags.text(section.markerCode, section.marker);
        for (Item const& item : section.items)
            item.value.writeTo(tags);
    }
    for (OdString const& application : record.applications)
        record.extendedData.at(application).writeTo(tags);
    return tags;
}

void mergeExtendedData(Record& present, Record& changes)
{
    for (OdString const& application : changes.applications) {
        OdDbTagList& data = changes.extendedData[application];
        bool const isOnlyName = ++data.begin() == data.end();
        bool const isNew = present.extendedData.try_emplace(application).second;
        if (isNew && !isOnlyName)
            present.applications.push_back(application);
        if (isOnlyName)
            std::erase(present.applications, application);
        present.extendedData[application] = std::move(data);
    }
}

} // namespace

std::optional<OdDbTagList> mergedRecord(OdDbTagList const& present, SdsRecord const& changes,
                                        OdDbDatabase& database, bool isKept)
{
    Record result = parse(present);
    Record change = parse(changes.tags);
    SectionFinder const finder(result, isKept);
    std::vector<Items> perSection(result.sections.size());
    for (Section const& section : change.sections) {
        bool isInBraces = false;
        for (Item const& item : section.items) {
            isInBraces = item.code == kBraces && section.marker.empty() ? !isInBraces : isInBraces;
            bool const isGroup = isInBraces || (item.code == kBraces && section.marker.empty());
            if (!isGroup)
                perSection[finder.find(section.marker, item.code)].push_back(item);
        }
    }
    for (std::size_t i = 0; i < perSection.size(); ++i)
        if (!SectionMerge(result.sections[i], perSection[i], database).merge())
            return std::nullopt;
    mergeExtendedData(result, change);
    return written(result);
}

} // namespace ca
