#include "host/app/ca_doc_manager.h"

#include "host/app/ca_app.h"

bool OdApDocManager::activate(oa::ApDoc* document, bool afterCommand)
{
    return afterCommand ? ca::app()->activateAfterCommand(document) : ca::app()->activate(document);
}

bool OdApDocManager::close(oa::ApDoc* document)
{
    return ca::app()->closeDocument(document);
}

OdApDocManager* odapDocManager()
{
    static OdApDocManager s_manager;
    return &s_manager;
}
