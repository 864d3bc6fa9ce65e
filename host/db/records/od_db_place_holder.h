#pragma once

#include "host/db/od_db_object.h"

/// An object without content, which gives a name in a dictionary something to stand for (plot styles).
class OdDbPlaceHolder : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbPlaceHolder)
public:
    bool standsAmongFileObjects() const override { return true; }
};
