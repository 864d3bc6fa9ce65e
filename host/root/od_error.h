#pragma once

#include "host/root/od_string.h"

#include <exception>

/// Result codes of accessors and the codes that OdError carries.
enum OdResult
{
    eOk = 0,
    eInvalidInput,
    eInvalidIndex,
    eNullObjectId,
    eUnknownHandle,
    eWasErased,
    eNotOpenForRead,
    eNotOpenForWrite,
    eAlreadyInDb,
    eNotInDatabase,
    eWrongDatabase,
    eDuplicateKey,
    eKeyNotFound,
    eInvalidName,
    eDegenerateGeometry,
    eNotApplicable,
    eSingularMatrix,
    eNotThatKindOfClass,
    eNoDocument,
    eOutOfRange,
    eFileNotFound,
    eFileAccess,
    eFileWrite,
    eInvalidFile,
    eUnsupportedFormat,
    eSelfReference,
    eCreationFailed = 255
};

/// Description of a code: one English sentence without code or full stop.
OdString odResultText(OdResult code);

/// The drawing database's exception: a code and a description. what() is the description in UTF-8.
class OdError : public std::exception
{
public:
    explicit OdError(OdResult code) : OdError(code, odResultText(code)) {}
    OdError(OdResult code, OdString description);

    OdResult code() const { return m_code; }
    OdString const& description() const { return m_description; }
    char const* what() const noexcept override { return m_narrow.c_str(); }

private:
    OdResult m_code;
    OdString m_description;
    std::string m_narrow;
};

class OdRxClass;

/// An object is not of the class that was asked for.
class OdError_NotThatKindOfClass : public OdError
{
public:
    OdError_NotThatKindOfClass(OdRxClass const* from, OdRxClass const* to);
    OdRxClass const* fromClass() const { return m_from; }
    OdRxClass const* toClass() const { return m_to; }

private:
    OdRxClass const* m_from;
    OdRxClass const* m_to;
};
