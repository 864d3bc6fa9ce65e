#pragma once

#include "host/db/records/od_db_abstract_view_table_record.h"

/// A named view.
class OdDbViewTableRecord : public OdDbAbstractViewTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbViewTableRecord)
public:
    double width() const { return m_width; }
    /// Throws OdError(eOutOfRange) unless both are positive.
    void setSize(double width, double height);
    bool isPaperspaceView() const { return hasFlag(kPaperSpace); }
    void setIsPaperspaceView(bool paperSpace) { setFlag(kPaperSpace, paperSpace); }

private:
    static constexpr int kPaperSpace = 1;

    double m_width = 1;
    std::int16_t m_hasUcs = 0;
};
using OdDbViewTableRecordPtr = OdSmartPtr<OdDbViewTableRecord>;
