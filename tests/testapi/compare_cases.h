#pragma once

#include "testapi/ta_host.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstring>
#include <functional>
#include <vector>

/// One property of one class that the comparison of entities looks at: how a copy comes to differ in it, and what
/// is said then. The texts are written out here, apart from those in the library.
struct CompareCase
{
    enum ETolerance
    {
        kExact,
        kEps, ///< the library's own
        kRel  ///< the argument relTolerance
    };
    OdRxClass* entityClass;
    OdString message;
    std::string expression; ///< empty where values are compared with a tolerance
    ETolerance tolerance;
    std::function<OdDbEntityPtr(OdDbDatabase&)> make;
    /// Changes the property, by the offset where it is compared with a tolerance.
    std::function<void(OdDbEntity&, double)> change;
    /// Another property cannot but change with it; it is told behind this one,
    bool inCompany = false;
    /// or before it.
    bool behindOthers = false;
    bool isCommon = false; ///< a property of all entities
};

/// @name Entities to begin with, in no drawing, with values that are not the defaults
/// @{
template <class T>
OdSmartPtr<T> madeForComparison(OdDbDatabase& database);
/// @}

inline OdString valueMessage(char const* property)
{
    return L"Incorrect " + OdString(std::wstring(property, property + std::strlen(property))) + L" value";
}

template <class T>
struct CompareCasesOf
{
    std::vector<CompareCase>& cases;
    std::function<OdDbEntityPtr(OdDbDatabase&)> make = [](OdDbDatabase& database) -> OdDbEntityPtr {
        return madeForComparison<T>(database);
    };

    using Change = std::function<void(T&, double)>;

    CompareCasesOf& add(OdString const& message, std::string const& expression, CompareCase::ETolerance tolerance,
                        Change const& change)
    {
        cases.push_back(
            {T::desc(), message, expression, tolerance, make,
             [change](OdDbEntity& entity, double offset) { change(static_cast<T&>(entity), offset); }});
        return *this;
    }
    CompareCasesOf& near(char const* property, Change const& change)
    {
        return add(valueMessage(property), {}, CompareCase::kEps, change);
    }
    CompareCasesOf& nearRel(char const* property, Change const& change)
    {
        return add(valueMessage(property), {}, CompareCase::kRel, change);
    }
    CompareCasesOf& exact(char const* property, std::function<void(T&)> const& change)
    {
        std::string const name = property;
        return add(valueMessage(property), "pp1-> " + name + " () == pp2-> " + name + " ()", CompareCase::kExact,
                   [change](T& entity, double) { change(entity); });
    }
    CompareCasesOf& exact(wchar_t const* message, char const* expression, std::function<void(T&)> const& change)
    {
        return add(message, expression, CompareCase::kExact, [change](T& entity, double) { change(entity); });
    }
    CompareCasesOf& annotative()
    {
        return exact(L"Incorrect Annotative value", "isAnno1 == isAnno2",
                     [](T& entity) { OdDbAnnotativeObjectPE::of(&entity)->setAnnotative(&entity, true); });
    }
    /// The last one goes with others, or behind others.
    CompareCasesOf& inCompany()
    {
        cases.back().inCompany = true;
        return *this;
    }
    CompareCasesOf& behindOthers()
    {
        cases.back().behindOthers = true;
        return inCompany();
    }
};

/// The part of an entity at an index, open for writing.
template <class T>
OdSmartPtr<T> partOf(OdDbEntity& entity, int index)
{
    OdDbPartIterator it = entity.partIterator();
    for (; index > 0; --index)
        it.step();
    return OdSmartPtr<T>(it.entity(OdDb::kForWrite));
}

void addCurveCases(std::vector<CompareCase>& cases);
void addVertexCases(std::vector<CompareCase>& cases);
void addTextCases(std::vector<CompareCase>& cases);
