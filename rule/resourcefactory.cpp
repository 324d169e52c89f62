// Resource factory: the general resource class of a schedule scene.
#include "qresourcebase.h"

QResourceVirtual* QResourceBase::CreateResource(const int&, const int&) {
    return nullptr;
}
