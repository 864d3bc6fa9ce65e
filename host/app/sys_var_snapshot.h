#pragma once

#include "host/app/sys_var_store.h"

#include <cstdint>
#include <vector>

namespace ca {

/// A variable that has another value than it had.
struct SysVarDifference
{
    OdString name;
    OdString before;
    OdString after;
    OdString document; ///< title; empty for variables of the application
};

/// Remembers all variables that can be set: those of the application and those of the documents that are open.
/// Documents that are closed meanwhile, and those opened later, are passed over.
class SysVarSnapshot
{
public:
    /// Remembers the present values. Taken again by the same object, drawings that nobody touched cost nothing.
    void take();
    /// In the order of names. What commands only leave there to offer it the next time is not a difference.
    std::vector<SysVarDifference> differences() const;
    /// Brings everything back, also what commands left. Returns the variables that refuse their old values, since
    /// what they name is gone.
    std::vector<SysVarDifference> restore();

private:
    struct DocumentValues
    {
        std::uint64_t serial = 0;
        std::uint64_t changeCount = 0;     ///< of the drawing
        std::vector<SysVarValue> drawing;  ///< in the order of the variables that drawings keep
        std::vector<SysVarValue> document; ///< of those that documents keep
    };
    DocumentValues const* find(CaDoc const& doc) const;
    template <class Visit>
    void visitChanges(Visit visit) const;

    SysVarStore::Values m_application;
    std::vector<DocumentValues> m_documents;
};

} // namespace ca
