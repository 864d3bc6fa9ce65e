#pragma once

#include "host/db/records/od_db_dim_variable.h"
#include "host/db/records/od_db_symbol_table.h"

#include <variant>

/// A dimension style: values of dimension variables, by name ("DIMASZ"; see od_db_dim_variable.h). A variable that
/// the style does not mention has its default. All accessors throw OdError: eKeyNotFound for a name that no
/// dimension variable has, eInvalidInput for a variable of another kind.
class OdDbDimStyleTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbDimStyleTableRecord)
public:
    /// Angles are in radians.
    double real(std::string_view name) const;
    void setReal(std::string_view name, double value);
    int integer(std::string_view name) const;
    void setInteger(std::string_view name, int value);
    OdString text(std::string_view name) const;
    void setText(std::string_view name, OdString const& value);
    /// A text style, an arrow block or a linetype.
    OdDbObjectId reference(std::string_view name) const;
    void setReference(std::string_view name, OdDbObjectId value);

    int handleGroupCode() const override { return 105; }
    void addedToDatabase() override;
    void audit(OdDbAuditInfo& info) const override;

private:
    /// As in files: numbers as they are, angles in degrees.
    using Value = std::variant<double, std::int64_t, OdString, OdDbObjectId>;
    struct Entry
    {
        OdDbDimVariable const* variable;
        Value value;
    };
    static bool readVariable(OdDbObject& object, OdDbTag const& tag);
    static bool readReference(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver);
    static OdDbObjectId namedBlock(std::string_view name, OdDbReferenceResolver& resolver);
    static void writeVariables(OdDbObject const& object, OdDbTagSink& sink);
    Value const* find(OdDbDimVariable const& variable) const;
    void eraseBadValues();
    void store(OdDbDimVariable const& variable, Value value);

    std::vector<Entry> m_entries; ///< in the order of the table of variables
    bool m_hasReadFlags = false;
};
using OdDbDimStyleTableRecordPtr = OdSmartPtr<OdDbDimStyleTableRecord>;

/// The table of dimension styles, whose head in drawing files lists its records.
class OdDbDimStyleTable : public OdDbSymbolTable
{
    OD_DB_DECLARE_CLASS(OdDbDimStyleTable)
private:
    static bool readHead(OdDbObject& object, OdDbTag const& tag);
    static void writeHead(OdDbObject const& object, OdDbTagSink& sink);
};
