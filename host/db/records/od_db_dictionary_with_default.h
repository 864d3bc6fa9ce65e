#pragma once

#include "host/db/records/od_db_dictionary.h"

/// A dictionary with an object that stands in where a name is asked for that it does not have (plot styles).
class OdDbDictionaryWithDefault : public OdDbDictionary
{
    OD_DB_DECLARE_CLASS(OdDbDictionaryWithDefault)
public:
    OdDbObjectId defaultId() const { return m_default; }
    void setDefaultId(OdDbObjectId id);

private:
    OdDbObjectId m_default;
};
using OdDbDictionaryWithDefaultPtr = OdSmartPtr<OdDbDictionaryWithDefault>;
