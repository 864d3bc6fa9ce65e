#include "host/root/od_error.h"

#include "host/root/od_rx_class.h"

OdString odResultText(OdResult code)
{
    struct Row
    {
        OdResult code;
        wchar_t const* text;
    };
    // clang-format off
    static constexpr Row s_rows[] = {
        {eOk,                 L"No error"},
        {eInvalidInput,       L"Invalid input"},
        {eInvalidIndex,       L"Invalid index"},
        {eNullObjectId,       L"Null object id"},
        {eUnknownHandle,      L"Unknown handle"},
        {eWasErased,          L"Object was erased"},
        {eNotOpenForRead,     L"Object is not open for reading"},
        {eNotOpenForWrite,    L"Object is not open for writing"},
        {eAlreadyInDb,        L"Object already belongs to a drawing"},
        {eNotInDatabase,      L"Object does not belong to a drawing"},
        {eWrongDatabase,      L"Object belongs to another drawing"},
        {eDuplicateKey,       L"Name is already in use"},
        {eKeyNotFound,        L"Name was not found"},
        {eInvalidName,        L"Name is not valid"},
        {eDegenerateGeometry, L"Geometry is degenerate"},
        {eNotApplicable,      L"Operation does not apply to this object"},
        {eSingularMatrix,     L"Matrix has no inverse"},
        {eNotThatKindOfClass, L"Object is not of the class asked for"},
        {eNoDocument,         L"No current document"},
        {eOutOfRange,         L"Value is out of range"},
        {eFileNotFound,       L"File was not found"},
        {eFileAccess,         L"File cannot be read"},
        {eFileWrite,          L"File cannot be written"},
        {eInvalidFile,        L"File is damaged"},
        {eUnsupportedFormat,  L"File format is not supported"},
        {eSelfReference,      L"Block would contain itself"},
        {eCreationFailed,     L"Creation failed"},
    };
    // clang-format on
    for (Row const& row : s_rows)
        if (row.code == code)
            return row.text;
    return odFormat(L"Error %d", static_cast<int>(code));
}

OdError::OdError(OdResult code, OdString description)
    : m_code(code), m_description(std::move(description)), m_narrow(m_description.toUtf8())
{
}

OdError_NotThatKindOfClass::OdError_NotThatKindOfClass(OdRxClass const* from, OdRxClass const* to)
    : OdError(eNotThatKindOfClass,
              odFormat(L"Object of class %ls is not of class %ls", from->name().c_str(), to->name().c_str())),
      m_from(from),
      m_to(to)
{
}
