#include "grading.h"

#include "pooltask.h"
#include "projectreader.h"
#include "scoredtree.h"
#include "schedulecategories.h"
#include "treebuilder.h"
#include "unjudged.h"

#include "markpointer.h"
#include "markruletables.h"
#include "qmarkcategoryvirtual.h"
#include "qratingitembase.h"

#include <future>
#include <memory>
#include <new>

namespace Grade {

namespace {

// What the scene grades, for the report's header; the plain and Twin scenes judge no attributes,
// durations, colours or curves.
QString sceneNote(int scene) {
    if (scene == MarkCode::SceneSite)
        return QStringLiteral("graded in the Site scene: all seven categories, with work-item attributes, "
                              "durations, colours and resource curves");
    return QStringLiteral(
               "graded in the %1 scene: work-item integrity, logic, Gantt chart and network "
               "principles; the Site scene (--scene Site) also judges durations, colours and curves")
        .arg(Host::sceneName(scene));
}

// Resources whose names no Site rule knows, so that a course can map them in its settings.
QString unknownResources(Host::ScheduleSide& side) {
    const QStringList known = MarkRuleTables::canonicalResourceNames();
    QStringList unknown;
    for (const Host::ResourceData& resource : side.data().project().resources)
        if (!known.contains(side.data().canonicalName(resource.name)))
            unknown << resource.name;
    if (unknown.isEmpty())
        return QString();
    return QStringLiteral("no Site rule knows the resources %1; map them to the catalogue's names with "
                          "resourceNames in the course settings")
        .arg(unknown.join(QStringLiteral(", ")));
}

// Runs the standard's and the candidate's share of a step, on two threads when the sides are graded
// together. Whatever either throws reaches the caller once both are done.
template <typename StandardWork, typename CandidateWork>
void bothSides(Sides sides, StandardWork standardWork, CandidateWork candidateWork) {
    if (sides == Sides::OneThread) {
        standardWork();
        candidateWork();
        return;
    }
    std::future<void> standardDone = poolTask(standardWork);
    try {
        candidateWork();
    } catch (...) {
        standardDone.wait(); // the standard's share refers to this call's objects
        throw;
    }
    standardDone.get();
}

QString productTitle(int product) {
    return product == MarkCode::ProductShape ? QStringLiteral("Shape building model")
                                             : QStringLiteral("%1 pricing").arg(Host::productName(product));
}

// Grades one schedule category of the two sides into category; false when the library gives no
// category of the type. Criteria the standard cannot judge are locked at 0 first.
bool gradeCategory(const Host::ScheduleProject& standard, Host::ScheduleSide& standardSide,
                   Host::ScheduleSide& candidateSide, CategoryResult& category, Sides sides) {
    QMarkCategoryVirtual* standardCategory = nullptr;
    QMarkCategoryVirtual* candidateCategory = nullptr;
    bothSides(
        sides, [&] { standardCategory = standardSide.category(category.type); },
        [&] { candidateCategory = candidateSide.category(category.type); });
    if (!standardCategory || !candidateCategory)
        return false;
    standardCategory->AssignScore(category.full);
    QRatingItemVirtual* standardRoot = MarkPointer::item(standardCategory->GetRatingItemPtr());
    const QHash<QString, QString> locked =
        lockCriteria(standardRoot, category.full, unjudgeable(standard, standardRoot));
    category.obtained = candidateCategory->ExecuteDBScore(standardCategory);
    if (QRatingItemVirtual* root = MarkPointer::item(candidateCategory->GetRatingItemPtr()))
        category.tree = copyTree(root, standardRoot, sides == Sides::Together);
    markUnjudged(category.tree, locked);
    if (category.tree.name.isEmpty())
        category.tree.name = category.title;
    if (standardRoot && standardRoot->GetChildItemCount() == 0)
        category.note = QStringLiteral("not judged in the %1 scene: the category has no criteria there")
                            .arg(Host::sceneName(standard.scene));
    // The scored tree is copied out: free both sides' trees before the next category builds its own.
    bothSides(
        sides, [&] { standardSide.release(category.type); }, [&] { candidateSide.release(category.type); });
    return true;
}

void gradeSchedule(const Host::ProjectFile& standard, const Host::ProjectFile& candidate, const Marks& marks,
                   Sides sides, CandidateResult& result) {
    const int scene = standard.schedule.scene;
    result.notes << sceneNote(scene);
    for (const QString& warning : standard.schedule.warnings)
        result.notes << QStringLiteral("standard: ") + warning;
    for (const QString& warning : candidate.schedule.warnings)
        result.notes << QStringLiteral("candidate: ") + warning;
    if (candidate.schedule.scene != scene)
        result.notes << QStringLiteral(
                            "the candidate's scene is %1, the standard's %2: graded in the %2 scene")
                            .arg(Host::sceneName(candidate.schedule.scene), Host::sceneName(scene));
    Host::ScheduleSide standardSide(standard.schedule, scene, false, marks.limits);
    Host::ScheduleSide candidateSide(candidate.schedule, scene, true, marks.limits);
    // Only the work items that the standard's chains name can stand in a chain of the judged network.
    candidateSide.setChainNames(standardSide.chainNames());
    standardSide.setCurveLimits(marks.curveLimits);
    for (int type : Host::ScheduleSide::categoryTypes()) {
        CategoryResult category;
        category.type = type;
        category.title = MarkRuleTables::categoryRootName(type);
        category.full = marks.schedule.value(type);
        // A category the host cannot hand over is left out of the totals, the others are graded.
        try {
            // The standard's side is settled beside the candidate's (its diagram analysis is as long).
            bothSides(
                sides, [&] { standardSide.ungradable(type); },
                [&] { category.note = candidateSide.ungradable(type); });
            if (type == MarkCode::CategoryNetPrinciple && !standard.schedule.hasDiagram)
                category.note = QStringLiteral("not gradable: the standard answer has no arrow diagram");
            if (category.note.isEmpty() &&
                !gradeCategory(standard.schedule, standardSide, candidateSide, category, sides))
                category.note =
                    QStringLiteral("not available: the library gives no category of type %1 for the %2 scene")
                        .arg(type)
                        .arg(Host::sceneName(scene));
        } catch (const std::bad_alloc&) {
            category.obtained = 0.0;
            category.tree = ScoredNode();
            category.note = QStringLiteral("not gradable: out of memory");
        }
        category.available = category.note.isEmpty();
        result.categories.append(category);
    }
    if (scene == MarkCode::SceneSite) {
        for (auto side :
             {std::make_pair(&standardSide, "standard: "), std::make_pair(&candidateSide, "candidate: ")}) {
            const QString unknown = unknownResources(*side.first);
            if (!unknown.isEmpty())
                result.notes << QLatin1String(side.second) + unknown;
        }
    }
    for (const QString& note : standardSide.notes())
        result.notes << QStringLiteral("standard: ") + note;
    for (const QString& note : candidateSide.notes())
        result.notes << QStringLiteral("candidate: ") + note;
}

void gradeTree(const Host::ProjectFile& standard, const Host::ProjectFile& candidate, const Marks& marks,
               Sides sides, CandidateResult& result) {
    CategoryResult category;
    category.type = standard.product;
    category.title = productTitle(standard.product);
    category.full = standard.product == MarkCode::ProductShape ? marks.model : marks.pricing;
    std::unique_ptr<QRatingItemBase> standardRoot;
    std::unique_ptr<QRatingItemBase> candidateRoot;
    bothSides(
        sides, [&] { standardRoot.reset(Host::buildRatingTree(standard)); },
        [&] { candidateRoot.reset(Host::buildRatingTree(candidate)); });
    if (!standardRoot || !candidateRoot) {
        category.available = false;
        category.note = QStringLiteral("not available: the library gives no rating item for product %1 (%2)")
                            .arg(standard.product)
                            .arg(Host::productName(standard.product));
    } else {
        Host::assignFullMarks(standardRoot.get(), standard.product, category.full);
        category.obtained = candidateRoot->ExecuteDBScore(MarkPointer::fromItem(standardRoot.get()), 1);
        category.tree = copyTree(candidateRoot.get(), standardRoot.get(), sides == Sides::Together);
        if (category.tree.name.isEmpty())
            category.tree.name = category.title;
    }
    result.categories.append(category);
}

} // namespace

double CandidateResult::full() const {
    double sum = 0.0;
    for (const CategoryResult& category : categories)
        if (category.available)
            sum += category.full;
    return sum;
}

double CandidateResult::obtained() const {
    double sum = 0.0;
    for (const CategoryResult& category : categories)
        if (category.available)
            sum += category.obtained;
    return sum;
}

CandidateResult gradeProject(const Host::ProjectFile& standard, const Host::ProjectFile& candidate,
                             const Marks& marks, Sides sides) {
    CandidateResult result;
    result.file = candidate.fileName;
    if (candidate.product != standard.product) {
        result.error = QStringLiteral("%1: holds product %2, the standard answer product %3")
                           .arg(candidate.fileName, Host::productName(candidate.product),
                                Host::productName(standard.product));
        return result;
    }
    if (standard.kind == Host::ProjectKind::Schedule)
        gradeSchedule(standard, candidate, marks, sides, result);
    else
        gradeTree(standard, candidate, marks, sides, result);
    for (CategoryResult& category : result.categories)
        explainLosses(category.tree);
    result.graded = true;
    return result;
}

CandidateFile readCandidate(const QString& path, const Host::ImportOptions& import) {
    CandidateFile file;
    file.path = path;
    auto project = QSharedPointer<Host::ProjectFile>::create();
    Host::ReadError error;
    if (Host::readProjectFile(path, *project, error, import))
        file.project = project;
    else
        file.error = error.toString();
    return file;
}

CandidateResult gradeCandidate(const Host::ProjectFile& standard, const CandidateFile& candidate,
                               const Marks& marks, Sides sides) {
    if (!candidate.project) {
        CandidateResult result;
        result.file = candidate.path;
        result.error = candidate.error;
        return result;
    }
    CandidateResult result = gradeProject(standard, *candidate.project, marks, sides);
    result.project = candidate.project;
    return result;
}

CandidateResult gradeFile(const Host::ProjectFile& standard, const QString& candidatePath, const Marks& marks,
                          const Host::ImportOptions& import) {
    return gradeCandidate(standard, readCandidate(candidatePath, import), marks);
}

} // namespace Grade
