#include "testapi/ta_entity_matching.h"
#include "testapi/ta_nearest_boxes.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace {

/// Of one class, with the same points and, for circles, the same size.
bool haveSameShape(OdDbEntity const& first, OdDbEntity const& second)
{
    std::vector<OdGePoint3d> points1, points2;
    first.getStretchPoints(points1);
    second.getStretchPoints(points2);
    auto const areNear = [](OdGePoint3d const& a, OdGePoint3d const& b) { return (a - b).length() < 2e-6; };
    auto const* const ray1 = odCast<OdDbRay>(&first);
    auto const* const ray2 = odCast<OdDbRay>(&second);
    auto const* const circle1 = odCast<OdDbCircle>(&first);
    auto const* const circle2 = odCast<OdDbCircle>(&second);
    return first.isA() == second.isA() && std::ranges::equal(points1, points2, areNear) &&
           (!ray1 || ray1->unitDir() == ray2->unitDir()) && (!circle1 || circle1->radius() == circle2->radius());
}

/// A drawing and what was added to its model space.
class Drawing
{
public:
    std::vector<OdDbEntity const*> entities;

    /// Takes handles that other drawings use for entities.
    void skipHandles(int count)
    {
        for (int i = 0; i < count; ++i)
            append(OdDbPointPtr(new OdDbPoint).get());
    }
    template <class T>
    T* add(OdSmartPtr<T> const& entity)
    {
        append(entity.get());
        entities.push_back(entity.get());
        return entity.get();
    }
    OdDbLine* line(OdGePoint3d const& start, OdGePoint3d const& end)
    {
        OdDbLinePtr const line = new OdDbLine;
        line->setStartPoint(start);
        line->setEndPoint(end);
        return add(line);
    }
    OdDbCircle* circle(OdGePoint3d const& center, double radius, double linetypeScale = 1)
    {
        OdDbCirclePtr const circle = new OdDbCircle;
        circle->setCenter(center);
        circle->setRadius(radius);
        circle->setLinetypeScale(linetypeScale);
        return add(circle);
    }
    OdDbObjectId block(wchar_t const* name)
    {
        auto const block = OdSmartPtr<OdDbBlockTableRecord>(new OdDbBlockTableRecord);
        block->setName(name);
        return m_database->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block.get());
    }
    void reverse() { std::ranges::reverse(entities); }

private:
    void append(OdDbEntity* entity)
    {
        m_database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(entity);
    }

    OdDbDatabasePtr m_database = new OdDbDatabase;
};

class EntityMatchingTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EntityMatchingTest);
    CPPUNIT_TEST(sameHandlesInSameOrder);
    CPPUNIT_TEST(otherHandlesInOtherOrder);
    CPPUNIT_TEST(withinToleranceAcrossCells);
    CPPUNIT_TEST(deletedInTheMiddle);
    CPPUNIT_TEST(movedEntityKeepsItsPartner);
    CPPUNIT_TEST(handleWinsOverNeighbour);
    CPPUNIT_TEST(unrelatedEntities);
    CPPUNIT_TEST(erasedEntities);
    CPPUNIT_TEST(duplicates);
    CPPUNIT_TEST(coincidentStack);
    CPPUNIT_TEST(changedStack);
    CPPUNIT_TEST(entitiesWithoutExtents);
    CPPUNIT_TEST(rawEntities);
    CPPUNIT_TEST(blockReferences);
    CPPUNIT_TEST(nearestBoxes);
    CPPUNIT_TEST_SUITE_END();

    Drawing m_first;
    Drawing m_second;
    std::size_t m_calls = 0;

    ta::EntityMatches matches()
    {
        m_calls = 0;
        return ta::matchEntities(
            m_first.entities, m_second.entities, 1e-6, [this](OdDbEntity const& first, OdDbEntity const& second) {
                ++m_calls;
                return haveSameShape(first, second) && first.linetypeScale() == second.linetypeScale();
            });
    }
    /// "0=1 2~0 -1 +2": equal pairs, unequal pairs, then what is only in the first and only in the second.
    std::string found()
    {
        auto const index = [](Drawing const& drawing, OdDbEntity const* entity) {
            return std::ranges::find(drawing.entities, entity) - drawing.entities.begin();
        };
        ta::EntityMatches const result = matches();
        std::ostringstream text;
        for (auto const& [entities, areEqual] : result.pairs)
            text << index(m_first, entities.first) << (areEqual ? "=" : "~") << index(m_second, entities.second)
                 << " ";
        for (OdDbEntity const* const entity : result.onlyInFirst)
            text << "-" << index(m_first, entity) << " ";
        for (OdDbEntity const* const entity : result.onlyInSecond)
            text << "+" << index(m_second, entity) << " ";
        return text.str();
    }
    std::size_t numEqualPairs(ta::EntityMatches const& result) const
    {
        return static_cast<std::size_t>(
            std::ranges::count_if(result.pairs, [](auto const& match) { return match.areEqual; }));
    }

    void sameHandlesInSameOrder()
    {
        for (Drawing* const drawing : {&m_first, &m_second})
            for (int i = 0; i < 3; ++i)
                drawing->circle({0, 0, 0}, 1);
        CPPUNIT_ASSERT_EQUAL(std::string("0=0 1=1 2=2 "), found());
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), m_calls);
        m_second.reverse();
        CPPUNIT_ASSERT_EQUAL(std::string("0=2 1=1 2=0 "), found());
    }

    void otherHandlesInOtherOrder()
    {
        m_second.skipHandles(1);
        for (Drawing* const drawing : {&m_first, &m_second}) {
            drawing->line({0, 0, 0}, {1, 0, 0});
            drawing->line({1, 0, 0}, {0, 0, 0});
            drawing->circle({0, 0, 0}, 1);
            drawing->line({0, 0, 0}, {2, 0, 0});
        }
        std::swap(m_second.entities[0], m_second.entities[3]);
        CPPUNIT_ASSERT_EQUAL(std::string("0=3 1=1 2=2 3=0 "), found());
    }

    void withinToleranceAcrossCells()
    {
        // So many coordinates that some of them stand on either side of a border, wherever the borders are.
        m_second.skipHandles(3000);
        for (int i = 0; i < 3000; ++i) {
            double const x = 10.0007 * i;
            m_first.line({x, x, 0}, {2 * x + 1, 5, 0});
            m_second.line({x + 0.9e-6, x - 0.9e-6, 0}, {2 * x + 1, 5 + 0.9e-6, 0});
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t(3000), numEqualPairs(matches()));
    }

    void deletedInTheMiddle()
    {
        m_second.skipHandles(7);
        for (int i = 0; i < 5; ++i) {
            m_first.circle({10.0 * i, 0, 0}, 1);
            if (i != 2)
                m_second.circle({10.0 * i, 0, 0}, 1);
        }
        CPPUNIT_ASSERT_EQUAL(std::string("0=0 1=1 3=2 4=3 -2 "), found());
    }

    void movedEntityKeepsItsPartner()
    {
        m_second.skipHandles(7);
        for (Drawing* const drawing : {&m_first, &m_second})
            for (int i = 0; i < 3; ++i)
                drawing->circle({10.0 * i, 0, 0}, 1);
        m_second.entities[1]->objectId().open<OdDbCircle>(OdDb::kForWrite)->setCenter({11, 1, 0});
        m_second.reverse();
        m_second.line({10, 0, 0}, {11, 0, 0}); // nearer, but of another class
        CPPUNIT_ASSERT_EQUAL(std::string("0=2 1~1 2=0 +3 "), found());
    }

    void handleWinsOverNeighbour()
    {
        m_first.circle({0, 0, 0}, 1);
        m_first.circle({10, 0, 0}, 1);
        m_first.line({0, 0, 0}, {1, 0, 0});
        m_second.circle({9, 0, 0}, 1);
        m_second.circle({1, 0, 0}, 1);
        m_second.circle({1, 0, 0}, 2); // of the handle that a line has in the first drawing
        CPPUNIT_ASSERT_EQUAL(std::string("0~0 1~1 -2 +2 "), found());
    }

    void unrelatedEntities()
    {
        m_second.skipHandles(7);
        m_first.circle({0, 0, 0}, 1);
        m_first.circle({100, 0, 0}, 1);
        m_second.circle({20, 0, 0}, 1); // farther than it is large, and not a small part of the drawing
        m_second.circle({104, 0, 0}, 1);
        CPPUNIT_ASSERT_EQUAL(std::string("1~1 -0 +0 "), found());
    }

    void erasedEntities()
    {
        for (Drawing* const drawing : {&m_first, &m_second}) {
            drawing->circle({0, 0, 0}, 1)->objectId().safeOpenObject(OdDb::kForWrite)->erase();
            drawing->circle({0, 0, 0}, 1);
        }
        CPPUNIT_ASSERT_EQUAL(std::string("1=1 "), found());
    }

    void duplicates()
    {
        m_second.skipHandles(7);
        for (int i = 0; i < 3; ++i)
            m_first.circle({0, 0, 0}, 1);
        for (int i = 0; i < 2; ++i)
            m_second.circle({0, 0, 0}, 1);
        CPPUNIT_ASSERT_EQUAL(std::string("0=0 1=1 -2 "), found());
    }

    /// 20,000 entities in one place, half of them different from all others, half of two kinds.
    void coincidentStack()
    {
        constexpr int count = 10000;
        m_second.skipHandles(2 * count);
        for (Drawing* const drawing : {&m_first, &m_second})
            for (int i = 0; i < count; ++i) {
                drawing->circle({1, 2, 0}, 1, 10 + i);
                drawing->circle({1, 2, 0}, 1, i < count / 2 ? 1 : 2);
            }
        m_second.reverse();
        ta::EntityMatches const result = matches();
        CPPUNIT_ASSERT_EQUAL(std::size_t(2 * count), numEqualPairs(result));
        CPPUNIT_ASSERT(m_calls < std::size_t(3 * count));
    }

    /// The same with none equal: pairs are found in the order of the stack, wherever it was moved.
    void changedStack()
    {
        constexpr int count = 20000;
        m_second.skipHandles(count);
        for (int i = 0; i < count; ++i) {
            m_first.circle({0, 0, 0}, 1, 1);
            m_second.circle({0.5, 0, 0}, 1, 2);
        }
        ta::EntityMatches const result = matches();
        CPPUNIT_ASSERT_EQUAL(std::size_t(count), result.pairs.size());
        CPPUNIT_ASSERT(result.pairs[7].entities.second == m_second.entities[7]);
        CPPUNIT_ASSERT(m_calls < std::size_t(10 * count));
    }

    void entitiesWithoutExtents()
    {
        m_second.skipHandles(7);
        for (Drawing* const drawing : {&m_first, &m_second})
            for (int i = 0; i < 1000; ++i) {
                OdDbRayPtr const ray = new OdDbRay;
                ray->setBasePoint({0, 0, 0});
                ray->setUnitDir(OdGeVector3d(1, i, 0).normalize());
                drawing->add(ray);
            }
        m_second.reverse();
        CPPUNIT_ASSERT_EQUAL(std::size_t(1000), numEqualPairs(matches()));
    }

    /// Entities that are only kept have no place, and differ by what they hold.
    void rawEntities()
    {
        m_second.skipHandles(1000);
        for (Drawing* const drawing : {&m_first, &m_second})
            for (int i = 0; i < 1000; ++i) {
                OdDbEntityPtr const raw = new OdDbRawEntity("BALLOON");
                OdDbTagList tags;
                tags.text(1, OdString(odFormat(L"text %d", i)));
                raw->editExtras().sections.push_back({0, "Balloon", tags});
                drawing->add(raw);
            }
        m_second.reverse();
        ta::EntityMatches const result =
            ta::matchEntities(m_first.entities, m_second.entities, 1e-6, [](auto const& a, auto const& b) {
                return a.extras()->sections[0].tags == b.extras()->sections[0].tags;
            });
        CPPUNIT_ASSERT_EQUAL(std::size_t(1000), numEqualPairs(result));
        CPPUNIT_ASSERT_EQUAL(
            std::size_t(0),
            ta::matchEntities(m_first.entities, m_second.entities, 1e-6, [](auto const&, auto const&) {
                return false;
            }).pairs.size());
    }

    void blockReferences()
    {
        m_second.skipHandles(7);
        for (Drawing* const drawing : {&m_first, &m_second}) {
            OdDbObjectId const block = drawing->block(L"A");
            for (int i = 0; i < 3; ++i) {
                OdDbBlockReferencePtr const reference = new OdDbBlockReference;
                drawing->add(reference);
                reference->setBlockTableRecord(block);
                reference->setPosition({10.0 * i, drawing == &m_second ? 0.25 : 0.0, 0});
            }
        }
        m_second.reverse();
        CPPUNIT_ASSERT_EQUAL(std::string("0~2 1~1 2~0 "), found());
    }

    void nearestBoxes()
    {
        std::mt19937 random(5); // the same boxes in every run
        auto const box = [&random] {
            ta::BoxCorners corners;
            for (double& each : corners)
                each = static_cast<double>(random() % 20);
            return corners;
        };
        std::vector<ta::BoxCorners> boxes(500);
        std::ranges::generate(boxes, box);
        std::fill_n(boxes.begin(), 100, boxes[0]);
        ta::NearestBoxes const tree(boxes);
        for (int i = 0; i < 100; ++i) {
            ta::BoxCorners const asked = box();
            std::vector<double> expected;
            for (ta::BoxCorners const& each : boxes)
                expected.push_back(ta::distanceOf(asked, each));
            std::ranges::sort(expected);
            auto const found = tree.nearest(asked, 5);
            CPPUNIT_ASSERT_EQUAL(std::size_t(5), found.size());
            for (std::size_t k = 0; k < found.size(); ++k) {
                CPPUNIT_ASSERT_EQUAL(expected[k], found[k].distance);
                CPPUNIT_ASSERT_EQUAL(expected[k], ta::distanceOf(asked, boxes[found[k].index]));
            }
        }
        CPPUNIT_ASSERT(ta::NearestBoxes({}).nearest(boxes[0], 3).empty());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(EntityMatchingTest);

} // namespace
