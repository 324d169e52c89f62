#include "markrulemodule.h"

MarkRule::MarkRule() = default;
MarkRule::~MarkRule() = default;
MarkRule::MarkRule(const MarkRule&) = default;
MarkRule& MarkRule::operator=(const MarkRule&) = default;
