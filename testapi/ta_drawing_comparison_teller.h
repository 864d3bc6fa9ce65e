#pragma once

#include "testapi/ta_drawing_comparison.h"

namespace ta {

/// Makes differences of one pair of objects into differences of drawings.
class DrawingComparison::Teller : public DifferenceSink
{
public:
    /// Without `tell`, differences are only counted.
    Teller(OdString const& place, OdDbObject const& object1, OdDbObject const& object2,
           DrawingComparison* receiver);

    void differs(Difference const& difference) override;
    long count() const { return m_count; }
    void setName(OdString const& name) { m_difference.name = name; }
    void setFileFields(bool areFileFields) { m_difference.isFileField = areFileFields; }

private:
    bool isToldWithWhole(Difference const& difference) const;

    DrawingComparison* m_receiver;
    DrawingDifference m_difference;
    std::vector<Difference> m_ofWhole;
    long m_count = 0;
};

} // namespace ta
