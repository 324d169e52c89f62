// MarkRule: the library's module class. It has no members and no behaviour; it exists so that a
// host can name the module.
#ifndef MARKRULEMODULE_H
#define MARKRULEMODULE_H

#include "markrule_global.h"

class MARKRULE_EXPORT MarkRule {
public:
    MarkRule();
    ~MarkRule();
    MarkRule(const MarkRule& other);
    MarkRule& operator=(const MarkRule& other);
};

#endif // MARKRULEMODULE_H
