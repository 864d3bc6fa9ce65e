#pragma once

class OdDbDimStyleTableRecord;

/// The dimension style "Standard" of new drawings, for copying.
OdDbDimStyleTableRecord const& odDbTemplateDimStyle();
