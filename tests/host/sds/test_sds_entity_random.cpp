// Entities of every class with random content: what lists say of them makes them again, and no list, however
// damaged, does harm.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/entities/od_db_vertices.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/sds/sds_entity_maker.h"
#include "tests/host/dxf/random_record.h"
#include "tests/host/sds/entity_lists.h"

#include <cmath>
#include <set>

namespace {

constexpr std::uint64_t kSeed = 20260117;
constexpr int kEach = 6;           ///< entities of a class
constexpr int kMostTries = 20'000; ///< until one of them is valid

std::vector<OdRxClass const*> entityClasses(bool areParts)
{
    std::vector<OdRxClass const*> classes;
    for (OdRxClass const* const cls : odrxClassDictionary::all()) {
        bool const isPart = cls == OdDbAttribute::desc() || cls->isDerivedFrom(OdDbVertex::desc());
        bool const isMark =
            cls == OdDbBlockBegin::desc() || cls == OdDbBlockEnd::desc() || cls == OdDbSequenceEnd::desc();
        bool const isEntity =
            cls->isDerivedFrom(OdDbEntity::desc()) && !odDbClassRegistry::dxfNameOf(cls).empty() && !isMark;
        if (isEntity && isPart == areParts)
            classes.push_back(cls);
    }
    std::ranges::sort(classes, {}, [](OdRxClass const* cls) { return cls->name(); });
    return classes;
}

OdDbTagList recordOf(OdDbObject const& object)
{
    OdDbTagList tags;
    odDbWriteRecord(object, tags);
    return tags;
}

bool isAngle(OdDbTag const& tag)
{
    return tag.kind == OdDbTagKind::kReal && OdDxfCode::_getType(tag.code) == OdDxfCode::kAngle;
}

/// Angles go through radians, which are as many digits.
bool sameTag(OdDbTag const& a, OdDbTag const& b)
{
    if (a.code != b.code || a.kind != b.kind)
        return false;
    if (isAngle(a))
        return std::abs(a.real - b.real) <= 4e-16 * std::abs(a.real) + 1e-300;
    bool const isBytes = a.kind == OdDbTagKind::kText || a.kind == OdDbTagKind::kBinary;
    return isBytes ? a.text == b.text : a.integer == b.integer;
}

/// All but what the drawing gives: handle, owner.
std::vector<std::string> differences(OdDbTagList const& expected, OdDbTagList const& actual)
{
    std::vector<std::string> found;
    auto it = actual.begin();
    for (OdDbTag const tag : expected) {
        if (it == actual.end())
            return {"ends early"};
        bool const isEnvelope = tag.code == 5 || tag.code == 330;
        if (!sameTag(tag, *it) && !(isEnvelope && (*it).code == tag.code))
            found.push_back(std::to_string(tag.code) + " became " + std::to_string((*it).code));
        ++it;
    }
    if (it != actual.end())
        found.push_back("goes on");
    return found;
}

class SdsEntityRandomTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SdsEntityRandomTest);
    CPPUNIT_TEST(listsMakeEqualEntities);
    CPPUNIT_TEST(changingOneGroupChangesIt);
    CPPUNIT_TEST(damagedListsDoNoHarm);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;
    std::vector<OdRxClass const*> m_partClasses = entityClasses(true);
    std::optional<RandomValues> m_values;
    std::optional<RandomRecord> m_record;
    std::optional<ca::SdsEntityMaker> m_maker;

    OdDbBlockTableRecordPtr space()
    {
        return m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }
    bool isSound(OdDbEntity const& entity)
    {
        OdDbAuditInfo info;
        entity.audit(info);
        return info.findings().empty();
    }
    OdDbEntityPtr filled(OdRxClass const& cls)
    {
        OdDbEntityPtr const entity = OdRxObjectPtr(cls.create());
        m_record->fill(*entity);
        // What a list does not carry over, and values that no list can say: single coordinates.
        OdDbObjectExtras& extras = entity->editExtras();
        extras.extensionDictionary = {};
        extras.reactors.clear();
        extras.applicationGroups.clear();
        extras.extendedData.clear();
        extras.extendedData.text(1001, OdString(L"ACAD"));
        extras.extendedData.real(1040, m_values->real());
        extras.extendedData.binary(1004, m_values->bytes());
        if (entity->layerId().isNull())
            entity->setLayer(m_database->getLayerZeroId());
        return entity;
    }
    /// An entity that an audit finds nothing wrong with, its parts too.
    OdDbEntityPtr validEntity(OdRxClass const& cls)
    {
        for (int i = 0; i < kMostTries; ++i) {
            OdDbEntityPtr const entity = filled(cls);
            space()->appendOdDbEntity(entity);
            addParts(*entity);
            bool areSound = isSound(*entity);
            for (OdDbStub* const part : entity->subentities())
                areSound &= isSound(static_cast<OdDbEntity const&>(*part->object));
            if (areSound)
                return entity;
            entity->upgradeOpen();
            entity->erase();
        }
        CPPUNIT_FAIL("no valid " + cls.name().toUtf8());
        return {};
    }
    void addParts(OdDbEntity& whole)
    {
        std::vector<OdRxClass const*> classes;
        for (OdRxClass const* const cls : m_partClasses)
            if (whole.takesPart(*OdDbEntityPtr(OdRxObjectPtr(cls->create()))))
                classes.push_back(cls);
        for (auto count = classes.empty() ? 0 : m_values->below(5); count > 0; --count) {
            OdDbEntityPtr const part = filled(*m_values->pick(classes));
            m_database->addOdDbObject(part, whole.objectId());
            whole.adoptPart(*part);
        }
        if (whole.subentities().empty() || !whole.sequenceEnd().isNull())
            return;
        OdDbSequenceEndPtr const end(new OdDbSequenceEnd);
        end->setLayer(whole.layerId());
        m_database->addOdDbObject(end, whole.objectId());
        whole.adoptSequenceEnd(*end);
    }
    ca::RbListPtr listOf(OdDbObjectId id)
    {
        ca::RbListPtr const all(ca::allocRb(L"*"));
        return ca::RbListPtr(sds_entgetx(ca::nameOf(id).words, all.get()));
    }
    std::vector<OdDbObjectId> recordsOf(OdDbEntity const& entity)
    {
        std::vector<OdDbObjectId> ids{entity.objectId()};
        for (OdDbStub* const part : entity.subentities())
            ids.emplace_back(part);
        if (!entity.sequenceEnd().isNull())
            ids.push_back(entity.sequenceEnd());
        return ids;
    }
    static OdDbTagList tagsOf(OdDbObjectId id) { return recordOf(*id.safeOpenObject()); }

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        m_values.emplace(kSeed);
        OdDbBlockTableRecordPtr const block(new OdDbBlockTableRecord);
        block->setName(L"Door");
        m_database->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block);
        std::vector<OdDbHandle> handles;
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            handles.push_back(m_database->getTableId(kind.kind).getHandle());
        m_record.emplace(*m_database, *m_values, handles, EOddities::kAtTheEnd);
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            for (OdDbStub const* const stub : m_database->table(kind.kind).records()) {
                auto const& record = static_cast<OdDbSymbolTableRecord const&>(*stub->object);
                if (kind.kind != OdDbTableKind::kBlock || record.objectId() == block->objectId())
                    m_record->canBeNamed(kind.kind, record);
            }
        m_maker.emplace(*m_database);
    }

    void listsMakeEqualEntities()
    {
        for (OdRxClass const* const cls : entityClasses(false))
            for (int i = 0; i < kEach; ++i) {
                OdDbEntityPtr const entity = validEntity(*cls);
                std::string const name = cls->name().toUtf8() + " " + std::to_string(i);
                std::vector<OdDbObjectId> const ids = recordsOf(*entity);
                for (OdDbObjectId const id : ids)
                    CPPUNIT_ASSERT_MESSAGE(name + "\n" + shownGroups(listOf(id).get()),
                                           m_maker->make(listOf(id).get()));
                OdDbEntityPtr const made = lastEntity(*m_database);
                CPPUNIT_ASSERT_MESSAGE(name, made->objectId() != entity->objectId() && made->isA() == cls);
                std::vector<OdDbObjectId> const madeIds = recordsOf(*made);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(name, ids.size(), madeIds.size());
                for (std::size_t k = 0; k < ids.size(); ++k)
                    for (std::string const& difference : differences(tagsOf(ids[k]), tagsOf(madeIds[k])))
                        CPPUNIT_FAIL(name + ": " + difference + "\n" + shownGroups(listOf(ids[k]).get()) +
                                     "\n--\n" + shownGroups(listOf(madeIds[k]).get()));
            }
    }

    void changingOneGroupChangesIt()
    {
        for (OdRxClass const* const cls : entityClasses(false))
            for (OdDbObjectId const id : recordsOf(*validEntity(*cls))) {
                std::string const name = cls->name().toUtf8() + "\n" + shownGroups(listOf(id).get());
                OdDbTagList const before = tagsOf(id);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(name, int(RTNORM), sds_entmod(listOf(id).get()));
                CPPUNIT_ASSERT_MESSAGE(name, before == tagsOf(id)); // to the last bit, angles too
                std::string const scale =
                    "-1 " + id.getHandle().ascii().toUtf8() + "\n48 " + std::to_string(m_values->below(100) + 2);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(name, int(RTNORM), sds_entmod(entityList(*m_database, scale).get()));
                OdDbTagList others;
                for (OdDbTag const tag : tagsOf(id))
                    if (tag.code != 48)
                        others.put(tag);
                OdDbTagList othersBefore;
                for (OdDbTag const tag : before)
                    if (tag.code != 48)
                        othersBefore.put(tag);
                CPPUNIT_ASSERT_MESSAGE(name, others == othersBefore);
            }
    }

    void damagedListsDoNoHarm()
    {
        constexpr int kRounds = 120;
        int made = 0, refused = 0;
        for (OdRxClass const* const cls : entityClasses(false)) {
            std::vector<OdDbObjectId> const ids = recordsOf(*validEntity(*cls));
            for (int i = 0; i < kRounds; ++i)
                for (OdDbObjectId const id : ids) {
                    ca::RbListPtr list = listOf(id);
                    damage(list);
                    bool const isMade = checked([&] { return m_maker->make(list.get()); });
                    checked([&] { return sds_entmod(list.get()) == RTNORM; });
                    ++(isMade ? made : refused);
                }
            m_maker->cancel();
        }
        CPPUNIT_ASSERT(made > 100 && refused > 100);
    }

private:
    /// What is refused changes nothing.
    template <class Action>
    bool checked(Action action)
    {
        std::uint64_t const before = m_database->changeCount();
        bool const isDone = action();
        CPPUNIT_ASSERT(isDone || before == m_database->changeCount());
        return isDone;
    }

    void damage(ca::RbListPtr& list)
    {
        for (auto count = m_values->below(4) + 1; count > 0; --count)
            damageOnce(list);
    }
    void damageOnce(ca::RbListPtr& list)
    {
        std::vector<sds_resbuf*> nodes;
        for (sds_resbuf* node = list.get(); node; node = node->rbnext)
            nodes.push_back(node);
        if (nodes.size() < 2)
            return;
        sds_resbuf& node = *nodes[m_values->below(nodes.size() - 1)];
        switch (m_values->below(5)) {
        case 0: // cut off
            ca::freeRbList(std::exchange(node.rbnext, nullptr));
            break;
        case 1: // one lost
            if (sds_resbuf* const lost = node.rbnext) {
                node.rbnext = std::exchange(lost->rbnext, nullptr);
                ca::freeRbList(lost);
            }
            break;
        case 2: node.restype = otherCode(node.restype); break;
        case 3: { // elsewhere
            sds_resbuf& other = *m_values->pick(nodes);
            std::swap(node.restype, other.restype);
            std::swap(node.resval, other.resval);
            break;
        }
        default: otherValue(node);
        }
    }
    /// Of the same kind of value, which the memory behind the node is.
    short otherCode(short code)
    {
        short const kind = ca::restypeToResvalType(code);
        for (int i = 0; i < 1000; ++i)
            if (auto const other = static_cast<short>(static_cast<int>(m_values->below(1080)) - 4);
                kind != 0 && ca::restypeToResvalType(other) == kind)
                return other;
        return code;
    }
    void otherValue(sds_resbuf& node)
    {
        constexpr double kReals[] = {0, -1, 1e308, std::numeric_limits<double>::quiet_NaN(),
                                     std::numeric_limits<double>::infinity()};
        constexpr wchar_t const* kTexts[] = {
            L"",       L"AcDbEntity", L"{ACAD_REACTORS",  L"}",        L"SEQEND", L"*", L"0",
            L"VERTEX", L"INSERT",     L"Embedded Object", L"AcDbMText"};
        switch (ca::restypeToResvalType(node.restype)) {
        case RTSTR: ca::setRbString(node, m_values->pick(kTexts)); break;
        case RTREAL: node.resval.rreal = m_values->pick(kReals); break;
        case RT3DPOINT: node.resval.rpoint[m_values->below(3)] = m_values->pick(kReals); break;
        case RTSHORT: node.resval.rint = static_cast<short>(m_values->integer(16)); break;
        case RTLONG:
        case RTINT64: node.resval.rlong = m_values->integer(64); break;
        case RTENAME: {
            OdDbObjectId const ids[] = {{},
                                        m_database->getLayerZeroId(),
                                        lastEntity(*m_database)->objectId(),
                                        m_database->getModelSpaceId()};
            std::ranges::copy(ca::nameOf(m_values->pick(ids)).words, node.resval.rlname);
            break;
        }
        default: break;
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SdsEntityRandomTest);

} // namespace
