// The one place where the untyped pointers of the host contract become typed objects. Rating items
// travel as void* made from a QRatingItemVirtual* (which is also their QObject*), work items as void*
// made from a QWorkItemVirtual*, project data as void* made from a QProjectDataVirtual*. A null
// pointer or an object of another class comes back as null, so callers degrade to "no effect".
#ifndef MARKPOINTER_H
#define MARKPOINTER_H

#include "qprojectdatavirtual.h"
#include "qratingitemvirtual.h"
#include "qworkitemvirtual.h"

namespace MarkPointer {

inline QObject* object(void* pointer) {
    return static_cast<QObject*>(pointer);
}

// A rating item of class T (QRatingItemVirtual or any subclass), or null.
template <class T = QRatingItemVirtual> T* item(void* pointer) {
    return pointer ? qobject_cast<T*>(object(pointer)) : nullptr;
}

inline void* fromItem(QRatingItemVirtual* item) {
    return static_cast<QObject*>(item);
}

inline QWorkItemVirtual* workItem(void* pointer) {
    return pointer ? qobject_cast<QWorkItemVirtual*>(object(pointer)) : nullptr;
}

inline QProjectDataVirtual* projectData(void* pointer) {
    return pointer ? qobject_cast<QProjectDataVirtual*>(object(pointer)) : nullptr;
}

} // namespace MarkPointer

#endif // MARKPOINTER_H
