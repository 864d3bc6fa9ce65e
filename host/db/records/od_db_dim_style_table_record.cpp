#include "host/db/records/od_db_dim_style_table_record.h"

#include "host/db/od_db_angle.h"
#include "host/db/od_db_database.h"

OD_DB_DEFINE_CLASS(OdDbDimStyleTableRecord, OdDbSymbolTableRecord, "DIMSTYLE")
OD_DEFINE_CLASS(OdDbDimStyleTable, OdDbSymbolTable)

OdDbFieldTable const& OdDbDimStyleTableRecord::fields()
{
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbDimStyleTableRecord::m_name>(2, OdDbWriteRule::kAlways),
    };
    static OdDbFieldTable const s_table({recordSection(),
                                         {.marker = "AcDbDimStyleTableRecord",
                                          .fields = s_fields,
                                          .readTail = &readVariable,
                                          .writeTail = &writeVariables,
                                          .readReference = &readReference,
                                          .readsNames = true}});
    return s_table;
}

namespace {

constexpr int kFlagsCode = 70; // also that of DIMTFILLCLR, which comes later in the record

/// The variable of a name, provided that its kind passes the test.
OdDbDimVariable const& checkedVariable(std::string_view name, bool (*isRightKind)(OdDbDimVariable const&))
{
    OdDbDimVariable const* const variable = odDbFindDimVariable(name);
    OdString const shown = OdString::fromUtf8(name);
    if (!variable)
        throw OdError(eKeyNotFound, odFormat(L"There is no dimension variable \"%ls\"", shown.c_str()));
    if (!isRightKind(*variable))
        throw OdError(eInvalidInput,
                      odFormat(L"The dimension variable \"%ls\" is of another kind", shown.c_str()));
    return *variable;
}

bool isReal(OdDbDimVariable const& variable)
{
    return variable.kind == OdDbDimVariable::kReal || variable.kind == OdDbDimVariable::kAngle;
}

bool isInteger(OdDbDimVariable const& variable)
{
    return variable.kind == OdDbDimVariable::kInteger;
}

bool isText(OdDbDimVariable const& variable)
{
    return variable.kind == OdDbDimVariable::kText;
}

bool isReference(OdDbDimVariable const& variable)
{
    return variable.isReference();
}

} // namespace

bool OdDbDimStyleTableRecord::readVariable(OdDbObject& object, OdDbTag const& tag)
{
    auto& self = static_cast<OdDbDimStyleTableRecord&>(object);
    if (tag.code == kFlagsCode && tag.kind == OdDbTagKind::kInteger && !self.m_hasReadFlags) {
        self.m_flags = static_cast<std::int16_t>(tag.integer);
        self.m_hasReadFlags = true;
        return true;
    }
    OdDbDimVariable const* const variable = odDbFindDimVariable(tag.code);
    if (!variable)
        return false;
    if (isReal(*variable) && tag.kind == OdDbTagKind::kReal)
        self.store(*variable, tag.real);
    else if (isInteger(*variable) && tag.kind == OdDbTagKind::kInteger)
        self.store(*variable, tag.integer);
    else if (isText(*variable) && tag.kind == OdDbTagKind::kText)
        self.store(*variable, OdString::fromUtf8(tag.text));
    else
        return false;
    return true;
}

/// The block has to exist for the style, defined or not: a reference by handle cannot lead nowhere.
OdDbObjectId OdDbDimStyleTableRecord::namedBlock(std::string_view name, OdDbReferenceResolver& resolver)
{
    OdDbObjectId const id = resolver.byName(OdDbTableKind::kBlock, name);
    if (auto* const record = id.isValid() ? odCast<OdDbSymbolTableRecord>(id.stub()->object) : nullptr)
        record->setImplied(false);
    return id;
}

bool OdDbDimStyleTableRecord::readReference(OdDbObject& object, OdDbTag const& tag,
                                            OdDbReferenceResolver& resolver)
{
    OdDbDimVariable const* const variable = odDbFindDimVariable(tag.code);
    if (!variable || !variable->isReference())
        return false;
    bool const isNamed = tag.kind == OdDbTagKind::kText;
    if (isNamed && (variable->kind != OdDbDimVariable::kBlock || tag.text.empty()))
        return false;
    auto& self = static_cast<OdDbDimStyleTableRecord&>(object);
    self.store(*variable, isNamed ? namedBlock(tag.text, resolver) : resolver.byHandle(tag.handle()));
    return true;
}

void OdDbDimStyleTableRecord::writeVariables(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& self = static_cast<OdDbDimStyleTableRecord const&>(object);
    sink.integer(kFlagsCode, self.m_flags);
    for (Entry const& entry : self.m_entries) {
        int const code = entry.variable->code;
        if (auto const* real = std::get_if<double>(&entry.value))
            sink.real(code, *real);
        else if (auto const* number = std::get_if<std::int64_t>(&entry.value))
            sink.integer(code, *number);
        else if (auto const* text = std::get_if<OdString>(&entry.value))
            sink.text(code, *text);
        else
            sink.handle(code, std::get<OdDbObjectId>(entry.value).getHandle());
    }
}

OdDbDimStyleTableRecord::Value const* OdDbDimStyleTableRecord::find(OdDbDimVariable const& variable) const
{
    auto const it =
        std::lower_bound(m_entries.begin(), m_entries.end(), &variable,
                         [](Entry const& entry, auto const* wanted) { return entry.variable < wanted; });
    return it != m_entries.end() && it->variable == &variable ? &it->value : nullptr;
}

void OdDbDimStyleTableRecord::store(OdDbDimVariable const& variable, Value value)
{
    if (auto* const present = const_cast<Value*>(find(variable))) {
        *present = std::move(value);
        return;
    }
    auto const at =
        std::upper_bound(m_entries.begin(), m_entries.end(), &variable,
                         [](auto const* wanted, Entry const& entry) { return wanted < entry.variable; });
    m_entries.insert(at, {&variable, std::move(value)});
}

double OdDbDimStyleTableRecord::real(std::string_view name) const
{
    OdDbDimVariable const& variable = checkedVariable(name, &isReal);
    Value const* const value = find(variable);
    double const number = value ? std::get<double>(*value) : variable.defaultValue;
    return variable.kind == OdDbDimVariable::kAngle ? OdDbAngle::ofDegrees(number).radians() : number;
}

void OdDbDimStyleTableRecord::setReal(std::string_view name, double value)
{
    OdDbDimVariable const& variable = checkedVariable(name, &isReal);
    assertWriteEnabled();
    bool const isAngle = variable.kind == OdDbDimVariable::kAngle;
    store(variable, isAngle ? OdDbAngle::ofRadians(value).degrees() : value);
}

int OdDbDimStyleTableRecord::integer(std::string_view name) const
{
    OdDbDimVariable const& variable = checkedVariable(name, &isInteger);
    Value const* const value = find(variable);
    return value ? static_cast<int>(std::get<std::int64_t>(*value)) : static_cast<int>(variable.defaultValue);
}

void OdDbDimStyleTableRecord::setInteger(std::string_view name, int value)
{
    OdDbDimVariable const& variable = checkedVariable(name, &isInteger);
    assertWriteEnabled();
    store(variable, std::int64_t(value));
}

OdString OdDbDimStyleTableRecord::text(std::string_view name) const
{
    Value const* const value = find(checkedVariable(name, &isText));
    return value ? std::get<OdString>(*value) : OdString();
}

void OdDbDimStyleTableRecord::setText(std::string_view name, OdString const& value)
{
    OdDbDimVariable const& variable = checkedVariable(name, &isText);
    assertWriteEnabled();
    store(variable, value);
}

OdDbObjectId OdDbDimStyleTableRecord::reference(std::string_view name) const
{
    Value const* const value = find(checkedVariable(name, &isReference));
    return value ? std::get<OdDbObjectId>(*value) : OdDbObjectId();
}

void OdDbDimStyleTableRecord::setReference(std::string_view name, OdDbObjectId value)
{
    OdDbDimVariable const& variable = checkedVariable(name, &isReference);
    if (isDBRO() && !value.isNull() && value.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    store(variable, value);
}

void OdDbDimStyleTableRecord::addedToDatabase()
{
    OdDbDimVariable const& style = checkedVariable("DIMTXSTY", &isReference);
    if (!find(style) && !database()->isBeingRead() && !database()->getTEXTSTYLE().isNull())
        store(style, database()->getTEXTSTYLE());
}

OdDbFieldTable const& OdDbDimStyleTable::fields()
{
    static OdDbFieldTable const s_table({tableSection(), {"AcDbDimStyleTable", {}, &readHead, &writeHead}});
    return s_table;
}

/// The head repeats what the records say: their number and their handles.
bool OdDbDimStyleTable::readHead(OdDbObject&, OdDbTag const& tag)
{
    return tag.code == 71 || tag.code == 340;
}

void OdDbDimStyleTable::writeHead(OdDbObject const& object, OdDbTagSink& sink)
{
    std::vector<OdDbStub*> records = static_cast<OdDbDimStyleTable const&>(object).records();
    std::erase_if(records, [](OdDbStub const* stub) {
        return stub->erased || static_cast<OdDbSymbolTableRecord const*>(stub->object)->isImplied();
    });
    sink.integer(71, static_cast<std::int64_t>(records.size()));
    for (OdDbStub const* const stub : records)
        sink.handle(340, stub->handle);
}
