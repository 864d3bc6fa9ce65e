#include "host/root/od_rx_object.h"

OdRxClass* OdRxObject::desc()
{
    static OdRxClass s_class(L"OdRxObject", nullptr, nullptr);
    return &s_class;
}
static OdRxClassRegistrar const s_registerOdRxObject(&OdRxObject::desc);

void OdRxObject::onLastRelease()
{
    delete this;
}
