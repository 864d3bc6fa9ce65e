#include "host/app/commands/insert_attributes.h"

#include "host/app/ca_doc.h"
#include "host/app/sys_var.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

namespace {

OdSmartPtr<OdDbAttributeDefinition> definitionOf(AttributeValue const& value)
{
    return value.definition.open<OdDbAttributeDefinition>();
}

std::vector<AttributeValue> defaultValues(OdDbObjectId block)
{
    std::vector<AttributeValue> values;
    auto const record = block.open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = record->newIterator(); !it.done(); it.step()) {
        OdDbEntityPtr const entity = it.entity();
        auto const* definition = odCast<OdDbAttributeDefinition>(entity.get());
        if (definition && !definition->isConstant())
            values.push_back({it.objectId(), definition->textString()});
    }
    return values;
}

/// Asks for one value; Enter takes the one that it has.
Task<> askValue(Editor& editor, AttributeValue& value)
{
    auto const definition = definitionOf(value);
    Prompt prompt(definition->prompt().isEmpty() ? definition->tag() : definition->prompt());
    prompt.defaultText(value.text);
    Answer const answer = co_await editor.text(prompt);
    if (!answer.isNone())
        value.text = answer.text;
}

/// Asks for the values whose definitions are so; the heading is shown when there are any.
Task<> askValues(Editor& editor, std::vector<AttributeValue>& values, OdString heading,
                 bool (*isAsked)(OdDbAttributeDefinition const&))
{
    bool isFirst = true;
    for (AttributeValue& value : values) {
        if (!isAsked(*definitionOf(value)))
            continue;
        if (std::exchange(isFirst, false))
            editor.message(heading);
        co_await askValue(editor, value);
    }
}

/// Text of several lines keeps its formatting unless another value was given.
void giveText(OdDbAttribute& attribute, OdDbAttributeDefinition const& definition, OdString const& text)
{
    if (definition.isMTextAttribute()) {
        OdDbMTextPtr const lines = definition.getMTextAttribute();
        if (text != definition.textString())
            lines->setContents(text);
        attribute.setMTextAttribute(lines.get());
    }
    attribute.setTextString(text);
}

/// The look of the definition, in the coordinates of the block.
OdDbAttributePtr attributeLike(OdDbAttributeDefinition const& definition)
{
    OdDbAttributePtr attribute(new OdDbAttribute);
    attribute->setLayer(definition.layerId());
    attribute->setColor(definition.color());
    attribute->setLinetype(definition.linetypeId());
    attribute->setLinetypeScale(definition.linetypeScale());
    attribute->setLineWeight(definition.lineWeight());
    attribute->setVisible(definition.isVisible());

    attribute->setNormal(definition.normal());
    attribute->setThickness(definition.thickness());
    attribute->setTextStyle(definition.textStyle());
    attribute->setHeight(definition.height());
    attribute->setWidthFactor(definition.widthFactor());
    attribute->setRotation(definition.rotation());
    attribute->setOblique(definition.oblique());
    attribute->mirrorInX(definition.isMirroredInX());
    attribute->mirrorInY(definition.isMirroredInY());
    attribute->setHorizontalMode(definition.horizontalMode());
    attribute->setVerticalMode(definition.verticalMode());
    attribute->setPosition(definition.position());
    if (!definition.isDefaultAlignment())
        attribute->setAlignmentPoint(definition.alignmentPoint());

    attribute->setTag(definition.tag());
    attribute->setInvisible(definition.isInvisible());
    attribute->setVerifiable(definition.isVerifiable());
    attribute->setPreset(definition.isPreset());
    attribute->setLockPositionInBlock(definition.lockPositionInBlock());
    return attribute;
}

} // namespace

Task<std::vector<AttributeValue>> askAttributes(Editor& editor, OdDbObjectId block)
{
    std::vector<AttributeValue> values = defaultValues(block);
    bool const isAsking = std::get<int>(SysVar::find(L"ATTREQ")->value(&editor.doc())) != 0;
    if (isAsking) {
        co_await askValues(editor, values, L"Enter attribute values",
                           [](auto const& definition) { return !definition.isPreset(); });
        co_await askValues(editor, values, L"Verify attribute values", [](auto const& definition) {
            return definition.isVerifiable() && !definition.isPreset();
        });
    }
    co_return values;
}

void appendAttributes(OdDbBlockReference& reference, std::vector<AttributeValue> const& values)
{
    OdGeMatrix3d const placement = reference.blockTransform();
    for (AttributeValue const& value : values) {
        OdSmartPtr<OdDbAttributeDefinition> const definition = definitionOf(value);
        OdDbAttributePtr const attribute = attributeLike(*definition);
        giveText(*attribute, *definition, value.text);
        if (OdResult const result = attribute->transformBy(placement); result != eOk)
            throw OdError(result,
                          odFormat(L"The attribute \"%ls\" cannot be placed so", attribute->tag().c_str()));
        reference.appendAttribute(attribute);
    }
}

} // namespace ca
