#pragma once

#include "host/db/od_db_object.h"

/// Protocol extension of the classes whose objects can be annotative: shown in a size that follows the scale of
/// the view. Asked for by class (`isA()->getX(OdDbAnnotativeObjectPE::desc())`), so that classes need not know of
/// it.
class OdDbAnnotativeObjectPE : public OdRxObject
{
    OD_DECLARE_CLASS(OdDbAnnotativeObjectPE)
public:
    virtual bool annotative(OdDbObject const* object) const = 0;
    /// Throws OdError: eNotInDatabase for an object without drawing, eNotOpenForWrite.
    virtual void setAnnotative(OdDbObject* object, bool isAnnotative) const = 0;

    /// The extension of the object's class; null where it has none.
    static OdDbAnnotativeObjectPE const* of(OdDbObject const* object);
    /// False for an object whose class has no extension.
    static bool isAnnotative(OdDbObject const* object);
};
