#pragma once

#include "host/db/od_db_handle.h"

#include <functional>
#include <vector>

class OdDbObject;

/// Receives what an audit finds, and mends what can be mended when that is wanted. Fixing opens objects for
/// writing and is recorded for undo like any other change.
class OdDbAuditInfo
{
public:
    struct Finding
    {
        OdDbHandle handle; ///< of the object that the finding is about
        OdString text;     ///< class or name of the object, a colon, what is wrong
        OdString remedy;   ///< what fixing does, as "erased"; empty when only people can tell what is right
        bool isFixed = false;

        /// The text with what was or can be done about it.
        OdString shown() const;
    };
    /// Mends the object, which is open for writing.
    using Fix = std::function<void(OdDbObject& object)>;

    explicit OdDbAuditInfo(bool fixesErrors = false) : m_fixesErrors(fixesErrors) {}

    bool fixesErrors() const { return m_fixesErrors; }
    std::vector<Finding> const& findings() const { return m_findings; }
    std::size_t errorsFound() const { return m_findings.size(); }
    std::size_t errorsFixed() const { return m_numFixed; }

    /// An error that cannot be fixed.
    void report(OdDbObject const& object, OdString const& text);
    /// An error that is fixed at once if errors are to be fixed.
    void report(OdDbObject const& object, OdString const& text, OdString const& remedy, Fix const& fix);
    /// An object that is of no use as it is: fixing erases it.
    void reportUseless(OdDbObject const& object, OdString const& text);

private:
    bool m_fixesErrors;
    std::vector<Finding> m_findings;
    std::size_t m_numFixed = 0;
};
