#include "tests/host/app/block_script.h"

#include "host/db/entities/od_db_line.h"
#include "host/sds/sds.h"

#include <cppunit/TestAssert.h>

namespace {

OdString number(double value)
{
    return odFormat(L"%.9g", std::round(value * 1e4) / 1e4 + 0.0);
}

OdString point(OdGePoint3d const& p)
{
    return number(p.x) + L"," + number(p.y) + (std::abs(p.z) < 1e-5 ? OdString() : L"," + number(p.z));
}

/// "TAG=text@position", with height and rotation in degrees where they are not 1 and 0.
OdString describe(OdDbAttribute const& attribute)
{
    OdString text = attribute.tag() + L"=" + attribute.textString() + L"@" + point(attribute.position());
    if (attribute.height() != 1)
        text += L" h" + number(attribute.height());
    if (attribute.rotation() != 0)
        text += L" r" + number(odgeToDegrees(attribute.rotation()));
    return text;
}

OdString describe(OdDbBlockReference const& reference)
{
    OdGeScale3d const scale = reference.scaleFactors();
    OdString text = reference.blockTableRecord().open<OdDbBlockTableRecord>()->getName() + L" " +
                    point(reference.position()) + L" s" + point({scale.sx, scale.sy, scale.sz}) + L" r" +
                    number(odgeToDegrees(reference.rotation()));
    for (OdDbPartIterator it = reference.attributeIterator(); !it.done(); it.step())
        text += L" " + describe(*it.objectId().open<OdDbAttribute>());
    return text;
}

OdString describe(OdDbEntity const& entity)
{
    if (auto const* reference = odCast<OdDbBlockReference>(&entity))
        return describe(*reference);
    if (auto const* line = odCast<OdDbLine>(&entity))
        return L"LINE " + point(line->startPoint()) + L" " + point(line->endPoint());
    if (auto const* definition = odCast<OdDbAttributeDefinition>(&entity))
        return L"ATTDEF " + definition->tag() + L" " + point(definition->position());
    return entity.isA()->name();
}

std::string contents(OdDbBlockTableRecord const& block)
{
    OdString all;
    for (OdDbObjectIterator it = block.newIterator(); !it.done(); it.step())
        all += (all.isEmpty() ? OdString() : OdString(L"; ")) + describe(*it.entity());
    return all.toUtf8();
}

} // namespace

void BlockScriptTest::run(OdString const& script)
{
    int const result = feed(script);
    CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
}

std::string BlockScriptTest::modelSpace()
{
    return contents(*space());
}

std::string BlockScriptTest::block(OdString const& name)
{
    return contents(*blocks().getAt(name).open<OdDbBlockTableRecord>());
}

OdDbAttributeDefinitionPtr BlockScriptTest::addDefinition(OdDbBlockTableRecord& block, OdString const& tag,
                                                          OdString const& text, OdGePoint3d const& position)
{
    OdDbAttributeDefinitionPtr definition(new OdDbAttributeDefinition);
    definition->setTag(tag);
    definition->setTextString(text);
    definition->setPosition(position);
    block.appendOdDbEntity(definition);
    definition->upgradeOpen();
    return definition;
}

void BlockScriptTest::makeTitleBlock()
{
    OdDbBlockTableRecordPtr const title(new OdDbBlockTableRecord);
    title->setName(L"Title");
    db().getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(title);
    title->upgradeOpen();
    auto const name = addDefinition(*title, L"NAME", L"none", {1, 0, 0});
    name->setPrompt(L"Name of the part");
    name->setVerifiable(true);
    addDefinition(*title, L"SIZE", L"A4", {1, 2, 0});
    addDefinition(*title, L"STATE", L"draft", {1, 4, 0})->setPreset(true);
    addDefinition(*title, L"FIRM", L"ours", {1, 6, 0})->setConstant(true);
}
