#include "testitem.h"

int TestItem::destroyedCount = 0;
bool TestItem::failCreate = false;
int TestItem::liveCount = 0;
