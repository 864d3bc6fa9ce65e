#pragma once

#include "testapi/ta_drawing_comparison.h"
#include "testapi/ta_test_cmd.h"

/// What a comparison with a reference drawing finds, as one failure: the first difference in full, some more in a
/// line each, the number of the others.
class ReferenceFindings
{
public:
    ReferenceFindings(ta::TestCmdArg const& test, OdString const& referencePath)
        : m_test(test), m_referencePath(referencePath)
    {
    }

    void add(ta::DrawingDifference const& difference);
    /// A difference of the drawings as a whole.
    void add(OdString const& text, ta::Place place);
    /// Fails the test when something was added. The note, unless empty, comes last.
    void failIfAny(OdString const& note) const;

    /// Which entities were compared by the fields of drawing files; empty when there were none.
    static OdString fieldsNote(std::map<OdString, long> const& comparedByFields);

private:
    bool isFirst() const { return m_count == 1; }
    void addDetails(ta::DrawingDifference const& difference);
    void addFurther(OdString const& line);
    OdString subjectOf(ta::DrawingDifference const& difference) const;
    OdString testNameOf(OdDbHandle handle) const;

    ta::TestCmdArg const& m_test;
    OdString m_referencePath;
    long m_count = 0;
    std::vector<OdString> m_details;
    std::vector<OdString> m_further;
    ta::Place m_place{};
};
