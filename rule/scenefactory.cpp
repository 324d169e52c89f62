// Scene factory: the Site and Twin scenes of a schedule product, registered under codes 1 and 2.
#include "qscenebase.h"

void QSceneBase::CreateSceneInfo(const int&, void*) {}
