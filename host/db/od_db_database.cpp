#include "host/db/od_db_database.h"

#include "host/db/records/od_db_symbol_table.h"

#include <mutex>
#include <unordered_map>

OdRxClass* OdDbDatabase::desc()
{
    static OdRxClass s_class(L"OdDbDatabase", &OdDbObject::desc, []() -> OdRxObject* { return new OdDbDatabase; });
    return &s_class;
}
static OdRxClassRegistrar const s_registerOdDbDatabase(&OdDbDatabase::desc);

namespace {

/// Drawings may be opened in several threads.
struct LivingDrawings
{
    std::mutex mutex;
    std::unordered_map<std::int64_t, OdDbDatabase*> bySerial;
    std::int64_t lastSerial = 0;

    std::int64_t add(OdDbDatabase& database)
    {
        std::lock_guard const lock(mutex);
        bySerial.emplace(++lastSerial, &database);
        return lastSerial;
    }
    void remove(std::int64_t serial)
    {
        std::lock_guard const lock(mutex);
        bySerial.erase(serial);
    }
};

LivingDrawings& livingDrawings()
{
    static LivingDrawings s_drawings;
    return s_drawings;
}

} // namespace

OdDbDatabase* OdDbDatabase::ofSerial(std::int64_t serial)
{
    LivingDrawings& drawings = livingDrawings();
    std::lock_guard const lock(drawings.mutex);
    auto const found = drawings.bySerial.find(serial);
    return found == drawings.bySerial.end() ? nullptr : found->second;
}

OdDbDatabase::OdDbDatabase(bool fromTemplate) : m_serial(livingDrawings().add(*this))
{
    m_undo.enable(false);
    if (fromTemplate)
        completeFromTemplate();
    m_undo.enable(true);
    m_changes = 0;
}

OdDbDatabase::~OdDbDatabase()
{
    livingDrawings().remove(m_serial);
    for (OdDbStub& stub : m_stubs) {
        if (OdDbObject* const object = std::exchange(stub.object, nullptr)) {
            object->m_stub = nullptr;
            object->setOwnedByOne(false);
            object->release();
        }
    }
}

OdDbSymbolTable& OdDbDatabase::table(OdDbTableKind kind) const
{
    OdDbObjectId const id = getTableId(kind);
    if (!id.isValid())
        throw OdError(eNullObjectId);
    return *static_cast<OdDbSymbolTable*>(id.stub()->object);
}

OdDbObjectId OdDbDatabase::getLayerZeroId() const
{
    return table(OdDbTableKind::kLayer).getAt(L"0");
}

OdDbObjectId OdDbDatabase::getLinetypeByLayerId() const
{
    return getUsual(OdDbTableKind::kLinetype);
}

OdDbObjectId OdDbDatabase::getUsual(OdDbTableKind kind) const
{
    bool const isLinetype = kind == OdDbTableKind::kLinetype;
    if ((!isLinetype && kind != OdDbTableKind::kTextStyle) || !getTableId(kind).isValid())
        return {};
    return table(kind).getAt(isLinetype ? L"ByLayer" : L"Standard");
}

void OdDbDatabase::setSpaces(OdDbObjectId model, OdDbObjectId paper)
{
    m_modelSpace = model;
    m_paperSpace = paper;
}

/// A header variable as it was.
class OdDbHeaderStep : public OdDbUndoStep
{
public:
    OdDbHeaderStep(std::string_view name, OdDbTagList tags) : m_name(name), m_tags(std::move(tags)) {}
    void revert(OdDbDatabase& database) override
    {
        m_tags = database.m_header.set(m_name, std::move(m_tags));
        if (database.m_header.find(m_name)->tags.empty())
            database.m_header.remove(m_name);
        database.noteChange();
    }

private:
    std::string m_name;
    OdDbTagList m_tags;
};

void OdDbDatabase::setHeaderVariable(std::string_view name, OdDbTagList tags)
{
    OdDbTagList before = m_header.set(name, std::move(tags));
    m_undo.add(std::make_unique<OdDbHeaderStep>(name, std::move(before)));
    noteChange();
}

void OdDbDatabase::setHeaderReal(std::string_view name, int code, double value)
{
    OdDbTagList tags;
    tags.real(code, value);
    setHeaderVariable(name, std::move(tags));
}

void OdDbDatabase::setHeaderInteger(std::string_view name, int code, std::int64_t value)
{
    OdDbTagList tags;
    tags.integer(code, value);
    setHeaderVariable(name, std::move(tags));
}

void OdDbDatabase::setHeaderPoint(std::string_view name, OdGePoint3d const& value, int coordinates)
{
    double const values[] = {value.x, value.y, value.z};
    OdDbTagList tags;
    tags.point(10, values, coordinates);
    setHeaderVariable(name, std::move(tags));
}

void OdDbDatabase::setHeaderText(std::string_view name, int code, OdString const& value)
{
    OdDbTagList tags;
    tags.text(code, value);
    setHeaderVariable(name, std::move(tags));
}

void OdDbDatabase::setTILEMODE(bool on)
{
    if (getTILEMODE() != on)
        setHeaderInteger("TILEMODE", 70, on ? 1 : 0);
}

/// The true color that was current.
class OdDbCurrentColorStep : public OdDbUndoStep
{
public:
    explicit OdDbCurrentColorStep(OdCmColor const& before) : m_color(before) {}
    void revert(OdDbDatabase& database) override { std::swap(database.m_currentTrueColor, m_color); }

private:
    OdCmColor m_color;
};

OdCmColor OdDbDatabase::getCECOLOR() const
{
    OdCmColor const color(static_cast<std::int16_t>(m_header.integer("CECOLOR", OdCmColor::kByLayer)));
    bool const isTrueColor =
        m_currentTrueColor.isTrueColor() && m_currentTrueColor.colorIndex() == color.colorIndex();
    return isTrueColor ? m_currentTrueColor : color;
}

void OdDbDatabase::setCECOLOR(OdCmColor const& color)
{
    OdCmColor const before = getCECOLOR();
    if (color == before)
        return;
    m_undo.add(std::make_unique<OdDbCurrentColorStep>(m_currentTrueColor));
    m_currentTrueColor = color;
    if (color.colorIndex() != before.colorIndex())
        setHeaderInteger("CECOLOR", 62, color.colorIndex());
    else
        noteChange();
}

/// The current record of a table as it was.
class OdDbCurrentStep : public OdDbUndoStep
{
public:
    OdDbCurrentStep(OdDbTableKind kind, OdDbObjectId before) : m_kind(static_cast<std::size_t>(kind)), m_id(before)
    {
    }
    void revert(OdDbDatabase& database) override
    {
        std::swap(database.m_current[m_kind], m_id);
        database.noteChange();
    }

private:
    std::size_t m_kind;
    OdDbObjectId m_id;
};

void OdDbDatabase::setCurrent(OdDbTableKind kind, OdDbObjectId record)
{
    if (record.database() != this)
        throw OdError(record.isNull() ? eNullObjectId : eWrongDatabase);
    if (current(kind) == record)
        return;
    m_undo.add(std::make_unique<OdDbCurrentStep>(kind, current(kind)));
    m_current[static_cast<std::size_t>(kind)] = record;
    noteChange();
}

void OdDbDatabase::raiseHandseed(OdDbHandle seed)
{
    constexpr OdDbHandle kAbsurd(std::uint64_t(1) << 63);
    if (seed < kAbsurd)
        m_handseed = std::max(m_handseed, seed);
}

void OdDbDatabase::raiseHandseedAbove(OdDbHandle handle)
{
    constexpr OdDbHandle kAbsurd(std::uint64_t(1) << 62);
    if (handle < kAbsurd)
        raiseHandseed(OdDbHandle(handle.value() + 1));
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(OdDbHandle handle, bool create)
{
    if (handle.isNull())
        return {};
    if (OdDbStub* const stub = m_handles.find(handle))
        return create || stub->object ? OdDbObjectId(stub) : OdDbObjectId();
    if (!create)
        return {};
    OdDbStub& stub = m_stubs.emplace_back();
    stub.handle = handle;
    stub.database = this;
    m_handles.set(handle, &stub);
    raiseHandseedAbove(handle);
    return OdDbObjectId(&stub);
}

/// A new object: taken back, it is erased but stays addressable, and its handle is free again.
class OdDbCreateStep : public OdDbUndoStep
{
public:
    OdDbCreateStep(OdDbStub* stub, OdDbHandle seed) : m_stub(stub), m_seed(seed) {}
    void revert(OdDbDatabase& database) override
    {
        m_stub->erased = !m_stub->erased;
        std::swap(database.m_handseed, m_seed);
        m_stub->object->erasedStateChanged();
        database.noteChange();
    }

private:
    OdDbStub* m_stub;
    OdDbHandle m_seed;
};

/// The first handle from the next one on that nothing has or refers to: absurdly large ones, which do not raise
/// the next handle, can be in its way. The handle of an object that was undone is free.
OdDbHandle OdDbDatabase::freeHandle() const
{
    for (OdDbHandle handle = m_handseed;; handle = OdDbHandle(handle.value() + 1)) {
        OdDbStub const* const stub = m_handles.find(handle);
        if (!stub || stub->erased)
            return handle;
    }
}

OdDbObjectId OdDbDatabase::addOdDbObject(OdDbObject* object, OdDbObjectId owner, OdDbHandle handle)
{
    OdDbObjectPtr const keep(object);
    if (object->isDBRO())
        throw OdError(eAlreadyInDb);
    OdDbHandle const seedBefore = m_handseed;
    bool const isNew = handle.isNull();
    if (isNew)
        handle = freeHandle();
    OdDbStub* stub = m_handles.find(handle);
    if (stub && stub->object) {
        if (!isNew)
            throw OdError(eDuplicateKey, odFormat(L"Handle %ls is in use", handle.ascii().c_str()));
        stub = nullptr; // the object of that handle was undone; its stub stays with it
    }
    if (!stub) {
        stub = &m_stubs.emplace_back();
        stub->handle = handle;
        stub->database = this;
        m_handles.set(handle, stub);
    }
    if (isNew)
        m_handseed = OdDbHandle(handle.value() + 1);
    else
        raiseHandseedAbove(handle);
    stub->object = object;
    object->addRef();
    object->setOwnedByOne(true);
    object->m_stub = stub;
    object->m_owner = owner;
    object->m_openForWrite = true;
    if (object->standsAmongFileObjects())
        m_fileObjects.push_back(stub);
    if (m_undo.isRecording()) {
        m_undo.add(std::make_unique<OdDbCreateStep>(stub, seedBefore));
        object->m_imageSerial = m_undo.serial();
    }
    object->addedToDatabase();
    noteChange();
    return object->objectId();
}
