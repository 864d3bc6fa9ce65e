#pragma once

#include "host/app/oa_app.h"

namespace oa {

/// Tells the application for the time of a scope that changes come from undoing or redoing.
class UndoInProgress
{
public:
    UndoInProgress() : m_before(app()->isUndoInProgress()) { app()->setUndoInProgress(true); }
    ~UndoInProgress() { app()->setUndoInProgress(m_before); }
    UndoInProgress(UndoInProgress const&) = delete;
    UndoInProgress& operator=(UndoInProgress const&) = delete;

private:
    bool m_before;
};

} // namespace oa
