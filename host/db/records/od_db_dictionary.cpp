#include "host/db/records/od_db_dictionary.h"

#include "host/db/filer/od_db_field_table.h"
#include "host/db/od_db_database.h"

#include <optional>

OD_DB_DEFINE_CLASS(OdDbDictionary, OdDbObject, "DICTIONARY")

/// An entry that was added, replaced or removed. Steps are taken back in reverse order, so that the number of the
/// entry still holds.
class OdDbDictionaryStep : public OdDbUndoStep
{
public:
    /// `other` is what stood there before, if anything; `isThere` says whether an entry stands there now.
    OdDbDictionaryStep(OdDbStub* dictionary, std::size_t number, std::optional<OdDbDictionary::Entry> other,
                       bool isThere)
        : m_dictionary(dictionary), m_number(number), m_other(std::move(other)), m_isThere(isThere)
    {
    }

    void revert(OdDbDatabase& database) override
    {
        auto& dictionary = *static_cast<OdDbDictionary*>(m_dictionary->object);
        auto& entries = dictionary.m_entries;
        auto const at = entries.begin() + static_cast<std::ptrdiff_t>(m_number);
        bool const wasThere = m_other.has_value();
        if (m_isThere && wasThere) {
            std::swap(*at, *m_other);
        } else if (m_isThere) {
            m_other = std::move(*at);
            entries.erase(at);
        } else {
            entries.insert(at, std::move(*m_other));
            m_other.reset();
        }
        m_isThere = wasThere;
        dictionary.m_index.isStale = true;
        database.noteChange();
    }

private:
    OdDbStub* m_dictionary;
    std::size_t m_number;
    std::optional<OdDbDictionary::Entry> m_other;
    bool m_isThere;
};

OdDbSection OdDbDictionary::dictionarySection()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbDictionary::m_isHardOwner>(280),
        odField<&OdDbDictionary::m_cloning>    (281, OdDbWriteRule::kAlways),
    };
    // clang-format on
    return {"AcDbDictionary", s_fields, &readName, &writeEntries, &readId};
}

OdDbFieldTable const& OdDbDictionary::fields()
{
    static OdDbFieldTable const s_table({dictionarySection()});
    return s_table;
}

bool OdDbDictionary::readName(OdDbObject& object, OdDbTag const& tag)
{
    if (tag.code != 3)
        return false;
    auto& dictionary = static_cast<OdDbDictionary&>(object);
    dictionary.m_entries.push_back({OdString::fromUtf8(tag.text), {}, false});
    dictionary.m_index.isStale = true;
    return true;
}

bool OdDbDictionary::readId(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver)
{
    auto& entries = static_cast<OdDbDictionary&>(object).m_entries;
    if ((tag.code != 350 && tag.code != 360) || entries.empty() || !entries.back().id.isNull())
        return false;
    entries.back().id = resolver.byHandle(tag.handle());
    entries.back().isHardOwner = tag.code == 360;
    return true;
}

void OdDbDictionary::writeEntries(OdDbObject const& object, OdDbTagSink& sink)
{
    for (Entry const& entry : static_cast<OdDbDictionary const&>(object).m_entries) {
        if (entry.id.isNull() || entry.id.stub()->erased)
            continue;
        sink.text(3, entry.name);
        sink.handle(entry.isHardOwner ? 360 : 350, entry.id.getHandle());
    }
}

std::size_t OdDbDictionary::find(OdString const& name) const
{
    constexpr std::size_t kTooFewForIndex = 16;
    if (m_entries.size() <= kTooFewForIndex) {
        auto const it = std::find_if(m_entries.begin(), m_entries.end(),
                                     [&name](Entry const& entry) { return entry.name.equalsNoCase(name); });
        return it == m_entries.end() ? kNotFound : static_cast<std::size_t>(it - m_entries.begin());
    }
    if (m_index.isStale)
        rebuildIndex();
    auto const it = m_index.find(name.upper());
    return it == m_index.end() ? kNotFound : it->second;
}

void OdDbDictionary::rebuildIndex() const
{
    m_index.clear();
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_index.emplace(m_entries[i].name.upper(), i);
    m_index.isStale = false;
}

OdDbObjectId OdDbDictionary::getAt(OdString const& name) const
{
    std::size_t const number = find(name);
    return number == kNotFound || m_entries[number].id.isErased() ? OdDbObjectId() : m_entries[number].id;
}

void OdDbDictionary::checkChange(OdString const& name) const
{
    if (!database())
        throw OdError(eNotInDatabase);
    if (!isWriteEnabled())
        throw OdError(eNotOpenForWrite);
    if (name.isEmpty())
        throw OdError(eInvalidName, L"An entry of a dictionary needs a name");
}

OdDbObjectId OdDbDictionary::setAt(OdString const& name, OdDbObject* object)
{
    OdDbObjectPtr const keep(object);
    checkChange(name);
    OdDbObjectId const older = getAt(name);
    OdDbObjectId const id = database()->addOdDbObject(object, objectId());
    put(name, id);
    if (OdDbObjectPtr const replaced = older.openObject(OdDb::kForWrite);
        replaced && replaced->ownerId() == objectId())
        replaced->erase();
    return id;
}

void OdDbDictionary::setAt(OdString const& name, OdDbObjectId id)
{
    checkChange(name);
    if (id.isNull())
        throw OdError(eNullObjectId);
    if (id.database() != database())
        throw OdError(eWrongDatabase);
    put(name, id);
}

void OdDbDictionary::put(OdString const& name, OdDbObjectId id)
{
    OdDbStub* const self = objectId().stub();
    OdDbUndoLog& log = database()->undoLog();
    if (std::size_t const number = find(name); number != kNotFound) {
        Entry const before = m_entries[number];
        log.add(std::make_unique<OdDbDictionaryStep>(self, number, before, true));
        m_entries[number].id = id;
    } else {
        log.add(std::make_unique<OdDbDictionaryStep>(self, m_entries.size(), std::nullopt, true));
        if (!m_index.isStale)
            m_index.emplace(name.upper(), m_entries.size());
        m_entries.push_back({name, id, m_isHardOwner});
    }
    database()->noteChange();
}

void OdDbDictionary::remove(OdString const& name)
{
    std::size_t const number = find(name);
    if (number == kNotFound)
        return;
    checkChange(name);
    auto const at = m_entries.begin() + static_cast<std::ptrdiff_t>(number);
    database()->undoLog().add(
        std::make_unique<OdDbDictionaryStep>(objectId().stub(), number, std::move(*at), false));
    m_entries.erase(at);
    m_index.isStale = true;
    database()->noteChange();
}

void OdDbDictionary::setTreatElementsAsHard(bool hard)
{
    assertWriteEnabled();
    m_isHardOwner = hard;
}

void OdDbDictionary::visitOwned(std::function<void(OdDbStub&)> const& visit) const
{
    OdDbObject::visitOwned(visit);
    for (Entry const& entry : m_entries)
        if (entry.id.isValid() && entry.id.stub()->object->ownerId() == objectId())
            visit(*entry.id.stub());
}
