#pragma once

class OdDbHeader;

/// The header variables of a new drawing. Those that follow from the drawing itself when it is written (release,
/// next handle) are not among them.
OdDbHeader const& odDbTemplateHeader();
