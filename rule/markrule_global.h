#ifndef MARKRULE_GLOBAL_H
#define MARKRULE_GLOBAL_H

#include <QtGlobal>

#if defined(MARKRULE_LIBRARY)
#define MARKRULE_EXPORT Q_DECL_EXPORT
#else
#define MARKRULE_EXPORT Q_DECL_IMPORT
#endif

// The interface classes of the host's core library (MarkCore) are compiled into MarkRule here; a
// host that ships its own MarkCore replaces these headers and this macro.
#define MARKCORE_EXPORT MARKRULE_EXPORT

#endif // MARKRULE_GLOBAL_H
