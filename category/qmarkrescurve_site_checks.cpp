// Criteria of the Site resource-curve category: the charts the standard expects and the checks of
// the judged project's curves.
#include "qmarkrescurve.h"

void QMarkResCurve_Sked_Site::BuildCurveItemsStd(QList<QResourceVirtual*>&) {}

void QMarkResCurve_Sked_Site::BuildCurveItems(QList<QResourceVirtual*>&) {}
