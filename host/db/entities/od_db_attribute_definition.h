#pragma once

#include "host/db/entities/od_db_attribute_base.h"

/// Asks for the value of an attribute whenever its block is inserted. Its text is the value that is offered; it
/// shows its tag where it is drawn itself.
class OdDbAttributeDefinition : public OdDbAttributeBase
{
    OD_DB_DECLARE_CLASS(OdDbAttributeDefinition)
public:
    OdDbAttributeDefinition() = default;

    /// Brings its own text (string, height, rotation, position) in line with the multiline text.
    void updateMTextAttributeDefinition() { takeTextOfMText(); }

    OdString const& prompt() const { return m_prompt; }
    void setPrompt(OdString const& prompt);
    /// Number of characters that the value may have; 0 for any.
    int fieldLength() const { return m_fieldLength; }
    /// Throws OdError(eOutOfRange) for a negative length or one above 32767.
    void setFieldLength(int length);

    void outline(OdDbOutlineSink& sink) const override;
    /// The outline that a constant attribute has in references to the block.
    void outlineValue(OdDbOutlineSink& sink) const { OdDbAttributeBase::outline(sink); }
    void listProperties(OdDbPropertySink& sink) const override;

private:
    std::int16_t multilineKind() const override { return 4; }

    OdString m_prompt;
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
