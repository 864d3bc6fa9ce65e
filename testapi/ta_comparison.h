#pragma once

// For those who compare entities property by property: who is told of what differs, and how two values agree. To
// compare two entities in a test, TestHelperEx::compareEntities() is enough; to compare drawings, see
// ta_drawing_comparison.h.

#include "testapi/ta_assert.h"

#include <span>
#include <vector>

namespace ta {

/// One property in which something differs from what was expected.
struct Difference
{
    /// Source text of the check that did not hold; null for a comparison with a tolerance.
    char const* expression;
    OdString message; ///< as "Incorrect radius value"
    OdString expected;
    OdString actual;    ///< both values are empty where the check has none
    double offBy = 0;   ///< for a comparison with a tolerance: the largest difference of a coordinate,
    double allowed = 0; ///< and what it may be
    OdString part;      ///< as "vertex 3"; empty for the entity itself
    Place place;
};

/// The class of an object as messages name it: "OdDbLine", or, for one of a class that the host does not know, its
/// name in drawing files ("HATCH").
OdString classNameOf(OdDbObject const& object);

/// Is told of differences. To end the comparison at the first one, throw.
class DifferenceSink
{
public:
    virtual ~DifferenceSink() = default;
    virtual void differs(Difference const& difference) = 0;
};

/// Fails the running test at the first difference.
class FailingSink : public DifferenceSink
{
public:
    /// What is compared, and where in the test; all may be null.
    struct Subject
    {
        OdDbEntity const* actual = nullptr;
        OdDbEntity const* expected = nullptr;
        char const* file = nullptr;
        int line = 0;
    };

    FailingSink() = default;
    explicit FailingSink(Subject const& subject) : m_subject(subject) {}
    [[noreturn]] void differs(Difference const& difference) override;

private:
    Subject m_subject;
};

/// Which objects of a drawing stand for which of another one.
class ObjectIdBridge
{
public:
    virtual ~ObjectIdBridge() = default;
    /// Null ids stand for each other alone.
    virtual bool same(OdDbObjectId id1, OdDbObjectId id2) const = 0;
};

/// What a check is called in failures, and where it stands.
struct Check
{
    char const* expression;
    wchar_t const* message;
    int line;
};

/// Compares entities by the table of their class, in the order of the table. Values are equal as their classes
/// say, or, compared with a tolerance, when no coordinate differs by more.
class Comparison
{
public:
    struct Options
    {
        bool skipCommonProps = false;
        double tolerance = 1e-6;
        double relTolerance = 1e-6;
        double eps = 1e-6; ///< of everything that has no tolerance of its own
    };

    /// Without a bridge, ids agree when they are the same.
    Comparison(DifferenceSink& sink, Options const& options, ObjectIdBridge const* bridge = nullptr);

    Options const& options() const { return m_options; }
    /// There is a table for exactly this class.
    static bool knows(OdRxClass const* entityClass);
    /// Compares two entities of which the first is the actual one: classes, common properties, and what the table
    /// of the class says. An entity without table is a difference.
    void entities(OdDbEntity const& entity1, OdDbEntity const& entity2);

    /// @name Single values, told to the sink where they differ. False then
    /// @{
    template <class T>
    bool exact(T const& actual, T const& expected, Check const& check)
    {
        if (same(actual, expected))
            return true;
        tellExact(textOf(expected), textOf(actual), check);
        return false;
    }
    bool near(double actual, double expected, double allowed, Check const& check);
    bool near(OdGePoint2d const& actual, OdGePoint2d const& expected, double allowed, Check const& check);
    bool near(OdGePoint3d const& actual, OdGePoint3d const& expected, double allowed, Check const& check);
    bool near(OdGeVector3d const& actual, OdGeVector3d const& expected, double allowed, Check const& check);
    bool near(OdGeScale3d const& actual, OdGeScale3d const& expected, double allowed, Check const& check);
    /// What has no two values to show.
    bool holds(bool condition, Check const& check);
    /// The same with values to show.
    bool holds(bool condition, double actual, double expected, Check const& check);
    /// @}

    bool same(OdDbObjectId id1, OdDbObjectId id2) const
    {
        return m_bridge ? m_bridge->same(id1, id2) : id1 == id2;
    }
    template <class T>
    bool same(T const& a, T const& b) const
    {
        return a == b;
    }

    /// While it lives, differences belong to a part of the entity, as "vertex 3" (numbers count from 1).
    class Part
    {
    public:
        Part(Comparison& comparison, wchar_t const* kind, int number) : m_comparison(comparison)
        {
            comparison.m_parts.push_back({kind, number});
        }
        ~Part() { m_comparison.m_parts.pop_back(); }
        Part(Part const&) = delete;
        Part& operator=(Part const&) = delete;

    private:
        Comparison& m_comparison;
    };

    /// @name Values in messages
    /// @{
    static OdString textOf(bool value);
    static OdString textOf(double value);
    static OdString textOf(OdString const& value) { return L"\"" + value + L"\""; }
    static OdString textOf(OdGePoint3d const& value);
    static OdString textOf(OdCmColor const& value);
    /// The name of a record, else the class and handle.
    static OdString textOf(OdDbObjectId id);
    template <class T>
    requires std::is_integral_v<T> || std::is_enum_v<T>
    static OdString textOf(T value) { return textOfInteger(static_cast<long long>(value)); }
    /// @}

private:
    struct PartName
    {
        wchar_t const* kind;
        int number;
    };

    static OdString textOfInteger(long long value);
    template <std::size_t N>
    bool nearCoordinates(double const (&actual)[N], double const (&expected)[N], double allowed,
                         Check const& check);
    void tellExact(OdString const& expected, OdString const& actual, Check const& check);
    void tell(Difference difference, Check const& check);
    void commonProperties(OdDbEntity const& pEnt1, OdDbEntity const& pEnt2);

    DifferenceSink& m_sink;
    Options m_options;
    ObjectIdBridge const* m_bridge;
    std::vector<PartName> m_parts;
};

} // namespace ta
