#pragma once

#include "host/app/oa_app.h"

/// Switches between documents and closes them, by their drawing-database part.
class OdApDocManager
{
public:
    /// Makes the document current before it returns; no command is cancelled. With `afterCommand`, a switch asked
    /// for while a command runs is put off until the command has ended. False for a document that is not open.
    bool activate(oa::ApDoc* document, bool afterCommand = false);
    /// Closes without saving and without asking. False for a document that is not open.
    bool close(oa::ApDoc* document);
};

OdApDocManager* odapDocManager();
