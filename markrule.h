// MarkRule umbrella header: every public class of the library and of the host contract.
#ifndef MARKRULE_H
#define MARKRULE_H

// Host contract: MarkCore interfaces, project data and plain records
#include "markrule_global.h"
#include "markrulecodes.h"
#include "markrecords.h"
#include "markpointer.h"
#include "qclassifyitemvirtual.h"
#include "qclassifyvirtual.h"
#include "qmarkcategoryvirtual.h"
#include "qprojectdatavirtual.h"
#include "qratingitemvirtual.h"
#include "qresourcevirtual.h"
#include "qscenevirtual.h"
#include "qworkitemvirtual.h"

// Module and its tables
#include "markrulemodule.h"
#include "markruletables.h"

// Rating-item framework
#include "qratingitembase.h"
#include "qratingitem_general.h"

// Schedule rating items
#include "qratingitem_sked.h"
#include "qratingitem_sked_scene.h"

// Pricing and building-model rating items
#include "qratingitem_tally.h"
#include "qratingitem_shape.h"

// Category framework
#include "qmarkcategorybase.h"

// Schedule categories
#include "qmarkattribute.h"
#include "qmarkganttchart.h"
#include "qmarkintegrity.h"
#include "qmarklogical.h"
#include "qmarknetprinciple.h"
#include "qmarknetrationality.h"
#include "qmarkrescurve.h"

// Resources and scenes
#include "qresourcebase.h"
#include "qresource_sked.h"
#include "qresource_sked_site.h"
#include "qscenebase.h"
#include "qscene_sked.h"
#include "qscene_site.h"
#include "qscene_twin.h"

#endif // MARKRULE_H
