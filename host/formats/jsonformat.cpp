#include "jsonformat.h"

#include "jsonreader.h"
#include "schedulebuilder.h"

#include <QHash>
#include <QSet>

namespace Host {

namespace {

const int maxTreeDepth = 64;
// The largest amount of a resource in use at once; squares of it stay far from overflow.
const double maxCurveAmount = 1e9;

class ProjectParser {
public:
    explicit ProjectParser(JsonReader& reader) : r(reader) {}

    void schedule(const QJsonObject& root, ImportedSchedule& project);
    void tree(const QJsonObject& object, const QString& path, TreeItemData& item, bool model, int depth);

private:
    void modelFields(const QJsonObject& object, const QString& path, TreeItemData& item);
    void pricingFields(const QJsonObject& object, const QString& path, TreeItemData& item);
    void workItems(const QJsonArray& array, const QString& path, ImportedSchedule& project);
    void predecessors(const QJsonArray& array, const QString& path, ImportedTask& task);
    void diagram(const QJsonObject& object, const QString& path, ImportedSchedule& project);
    void arrows(const QJsonArray& array, const QString& path, const QString& nodesPath,
                const QSet<int>& nodes, ImportedSchedule& project);
    void gantt(const QJsonObject& object, const QString& path, ImportedSchedule& project);
    void resources(const QJsonArray& array, const QString& path, QList<ImportedResource>& out);
    void curves(const QJsonArray& array, const QString& path, QList<CurveData>& out);

    JsonReader& r;
};

void ProjectParser::schedule(const QJsonObject& root, ImportedSchedule& project) {
    r.checkKeys(root, QStringLiteral("$"),
                {"formatVersion", "product", "scene", "workItems", "arrowDiagram", "gantt", "resources",
                 "resourceCurves"});
    project.format = QStringLiteral("MarkRule JSON");
    project.explicitFlags = true;
    project.tasksWhere = QStringLiteral("$.workItems");
    if (r.has(root, "scene")) {
        const QString scene = r.text(root, QStringLiteral("$"), "scene", false);
        if (scene == QLatin1String("plain"))
            project.scene = MarkCode::ScenePlain;
        else if (scene == QLatin1String("Site"))
            project.scene = MarkCode::SceneSite;
        else if (scene == QLatin1String("Twin"))
            project.scene = MarkCode::SceneTwin;
        else
            r.fail(QStringLiteral("$.scene"), QStringLiteral("\"plain\", \"Site\" or \"Twin\""),
                   root.value(QLatin1String("scene")));
    }
    workItems(r.array(root, QStringLiteral("$"), "workItems", true), project.tasksWhere, project);
    project.hasDiagram = r.has(root, "arrowDiagram");
    diagram(r.object(root, QStringLiteral("$"), "arrowDiagram", false), QStringLiteral("$.arrowDiagram"),
            project);
    gantt(r.object(root, QStringLiteral("$"), "gantt", false), QStringLiteral("$.gantt"), project);
    resources(r.array(root, QStringLiteral("$"), "resources", false), QStringLiteral("$.resources"),
              project.resources);
    curves(r.array(root, QStringLiteral("$"), "resourceCurves", false), QStringLiteral("$.resourceCurves"),
           project.curves);
}

void ProjectParser::workItems(const QJsonArray& array, const QString& path, ImportedSchedule& project) {
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject object = r.objectAt(array, i, path);
        r.checkKeys(object, at,
                    {"id", "name", "quantityCode", "quantityName", "unit", "plannedQuantity", "duration",
                     "fixedDuration", "color", "lineWidth", "labourIntensity", "crew", "materialTotal",
                     "predecessors"});
        ImportedTask task;
        task.where = at;
        task.id = QString::number(r.integer(object, at, "id", true));
        task.name = r.text(object, at, "name", true);
        if (r.ok() && (tidyName(task.name).isEmpty() || task.name.contains(QLatin1Char(';')) ||
                       task.name.contains(QLatin1Char('&'))))
            r.fail(JsonReader::member(at, "name"), QStringLiteral("a non-empty text without ';' or '&'"),
                   object.value(QLatin1String("name")));
        task.quantityCode = r.text(object, at, "quantityCode", false);
        task.quantityName = r.text(object, at, "quantityName", false);
        task.unit = r.text(object, at, "unit", false);
        task.plannedQuantity = r.number(object, at, "plannedQuantity", false);
        static const QString durationRange =
            QStringLiteral("a whole number of days from 0 to %1").arg(maxDays);
        task.durationDays = r.integer(object, at, "duration", true, 0, 0, maxDays, durationRange);
        task.fixedDuration = r.boolean(object, at, "fixedDuration");
        task.color = r.textOrNumber(object, at, "color");
        task.lineWidth = r.textOrNumber(object, at, "lineWidth");
        task.labourIntensity = r.textOrNumber(object, at, "labourIntensity");
        task.crew = r.text(object, at, "crew", false);
        task.materialTotal = r.number(object, at, "materialTotal", false);
        predecessors(r.array(object, at, "predecessors", false), JsonReader::member(at, "predecessors"),
                     task);
        project.tasks.append(task);
    }
}

// A predecessor is a work item's id (finish-to-start), or {"id": N, "type": "SS", "lag": days}.
void ProjectParser::predecessors(const QJsonArray& array, const QString& path, ImportedTask& task) {
    static const QHash<QString, LinkType> types{{QStringLiteral("FS"), LinkType::FinishToStart},
                                                {QStringLiteral("SS"), LinkType::StartToStart},
                                                {QStringLiteral("FF"), LinkType::FinishToFinish},
                                                {QStringLiteral("SF"), LinkType::StartToFinish}};
    for (int k = 0; k < array.size() && r.ok(); ++k) {
        const QString at = JsonReader::element(path, k);
        ImportedLink link;
        link.where = at;
        int id = 0;
        if (array.at(k).isObject()) {
            const QJsonObject object = array.at(k).toObject();
            r.checkKeys(object, at, {"id", "type", "lag"});
            id = r.integer(object, at, "id", true, 0, std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max(), QStringLiteral("the id of a work item"));
            const QString type = r.text(object, at, "type", false, QStringLiteral("FS"));
            if (r.ok() && !types.contains(type))
                r.fail(JsonReader::member(at, "type"), QStringLiteral("\"FS\", \"SS\", \"FF\" or \"SF\""),
                       object.value(QLatin1String("type")));
            link.type = types.value(type);
            static const QString lagRange =
                QStringLiteral("a whole number of days from -%1 to %1").arg(maxDays);
            link.lagDays = r.integer(object, at, "lag", false, 0, -maxDays, maxDays, lagRange);
        } else if (!r.readInteger(array.at(k), at, std::numeric_limits<int>::min(),
                                  std::numeric_limits<int>::max(),
                                  QStringLiteral("the id of a work item, or a link object"), id)) {
            return;
        }
        link.predecessor = QString::number(id);
        task.links.append(link);
    }
}

void ProjectParser::diagram(const QJsonObject& object, const QString& path, ImportedSchedule& project) {
    if (object.isEmpty() || !r.ok())
        return;
    r.checkKeys(object, path, {"nodes", "arrows"});
    const QJsonArray nodes = r.array(object, path, "nodes", true);
    const QString nodesPath = JsonReader::member(path, "nodes");
    QSet<int> known;
    for (int i = 0; i < nodes.size() && r.ok(); ++i) {
        int number = 0;
        if (!r.readInteger(nodes.at(i), JsonReader::element(nodesPath, i), std::numeric_limits<int>::min(),
                           std::numeric_limits<int>::max(), QStringLiteral("a node number"), number))
            return;
        if (known.contains(number)) {
            r.failWith(JsonReader::element(nodesPath, i),
                       QStringLiteral("expected a node number not listed before, found %1").arg(number));
            return;
        }
        known.insert(number);
        project.diagramNodes.append(number);
    }
    project.diagramWhere = JsonReader::member(path, "arrows");
    arrows(r.array(object, path, "arrows", true), project.diagramWhere, nodesPath, known, project);
}

void ProjectParser::arrows(const QJsonArray& array, const QString& path, const QString& nodesPath,
                           const QSet<int>& known, ImportedSchedule& project) {
    const QString nodeText = QStringLiteral("a node number listed in %1").arg(nodesPath);
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject arrowObject = r.objectAt(array, i, path);
        r.checkKeys(arrowObject, at, {"from", "to", "workItem", "dummy"});
        ImportedArrow arrow;
        arrow.where = JsonReader::member(at, "workItem");
        arrow.from = r.integer(arrowObject, at, "from", true, 0, std::numeric_limits<int>::min(),
                               std::numeric_limits<int>::max(), nodeText);
        arrow.to = r.integer(arrowObject, at, "to", true, 0, std::numeric_limits<int>::min(),
                             std::numeric_limits<int>::max(), nodeText);
        if (r.ok() && !known.contains(arrow.from))
            r.fail(JsonReader::member(at, "from"), nodeText, arrowObject.value(QLatin1String("from")));
        if (r.ok() && !known.contains(arrow.to))
            r.fail(JsonReader::member(at, "to"), nodeText, arrowObject.value(QLatin1String("to")));
        if (r.ok() && arrow.from == arrow.to)
            r.fail(JsonReader::member(at, "to"), QStringLiteral("a node other than \"from\""),
                   arrowObject.value(QLatin1String("to")));
        const bool dummy = r.boolean(arrowObject, at, "dummy");
        const bool hasWorkItem = r.has(arrowObject, "workItem");
        if (r.ok() && dummy == hasWorkItem)
            r.failWith(at, QStringLiteral("expected either \"workItem\" or \"dummy\": true, found %1")
                               .arg(dummy ? QStringLiteral("both") : QStringLiteral("neither")));
        if (r.ok() && hasWorkItem)
            arrow.workItem = QString::number(
                r.integer(arrowObject, at, "workItem", true, 0, std::numeric_limits<int>::min(),
                          std::numeric_limits<int>::max(), QStringLiteral("the id of a work item")));
        project.arrows.append(arrow);
    }
}

void ProjectParser::gantt(const QJsonObject& object, const QString& path, ImportedSchedule& project) {
    if (!r.ok())
        return;
    r.checkKeys(object, path, {"timeUnit", "rowsPerPage", "order"});
    project.timeUnit = r.text(object, path, "timeUnit", false);
    if (r.has(object, "rowsPerPage"))
        project.rowsPerPage = r.integer(object, path, "rowsPerPage", false, 0, 0, 100000,
                                        QStringLiteral("a whole number of rows from 0 to 100000"));
    if (r.has(object, "order"))
        project.ganttOrder = r.textList(object, path, "order");
}

void ProjectParser::resources(const QJsonArray& array, const QString& path, QList<ImportedResource>& out) {
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject object = r.objectAt(array, i, path);
        r.checkKeys(object, at, {"name", "plannedTotal", "code", "unit"});
        ImportedResource resource;
        resource.id = QString::number(i);
        resource.where = at;
        resource.name = r.text(object, at, "name", true);
        resource.plannedTotal =
            r.integer(object, at, "plannedTotal", false, 0, 0, std::numeric_limits<int>::max(),
                      QStringLiteral("a whole number of at least 0"));
        resource.code = r.text(object, at, "code", false);
        resource.unit = r.text(object, at, "unit", false);
        out.append(resource);
    }
}

void ProjectParser::curves(const QJsonArray& array, const QString& path, QList<CurveData>& out) {
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject object = r.objectAt(array, i, path);
        r.checkKeys(object, at, {"name", "drawnByCandidate", "points"});
        CurveData curve;
        curve.name = r.text(object, at, "name", true);
        curve.drawnByCandidate = r.boolean(object, at, "drawnByCandidate");
        const QJsonArray points = r.array(object, at, "points", true);
        const QString pointsPath = JsonReader::member(at, "points");
        for (int k = 0; k < points.size() && r.ok(); ++k) {
            const QString pointPath = JsonReader::element(pointsPath, k);
            const QJsonObject pointObject = r.objectAt(points, k, pointsPath);
            r.checkKeys(pointObject, pointPath, {"minute", "amount"});
            CurvePoint point;
            static const QString minuteRange = QStringLiteral("a whole number of minutes of at least 0");
            point.minute = r.integer(pointObject, pointPath, "minute", true, 0, 0,
                                     std::numeric_limits<int>::max(), minuteRange);
            if (r.ok() && !curve.points.isEmpty() && point.minute <= curve.points.last().minute)
                r.fail(JsonReader::member(pointPath, "minute"),
                       QStringLiteral("a whole number of minutes after %1").arg(curve.points.last().minute),
                       pointObject.value(QLatin1String("minute")));
            point.amount = r.number(pointObject, pointPath, "amount", true, 0.0, 0.0, maxCurveAmount);
            curve.points.append(point);
        }
        out.append(curve);
    }
}

void ProjectParser::modelFields(const QJsonObject& object, const QString& path, TreeItemData& item) {
    const QJsonValue value = object.value(QLatin1String("value"));
    item.value = r.textOrNumber(object, path, "value");
    const QString type = r.text(object, path, "dataType", false,
                                value.isDouble() ? QStringLiteral("number") : QStringLiteral("text"));
    if (type == QLatin1String("text"))
        item.dataType = TreeItemData::Text;
    else if (type == QLatin1String("number"))
        item.dataType = TreeItemData::Number;
    else if (type == QLatin1String("integer"))
        item.dataType = TreeItemData::Integer;
    else
        r.fail(JsonReader::member(path, "dataType"), QStringLiteral("\"text\", \"number\" or \"integer\""),
               object.value(QLatin1String("dataType")));
    item.indexRule = r.integer(object, path, "indexRule", false, item.indexRule);
    item.scoreRule = r.integer(object, path, "scoreRule", false, item.scoreRule);
    item.attributeData = r.textList(object, path, "attributeData");
}

void ProjectParser::pricingFields(const QJsonObject& object, const QString& path, TreeItemData& item) {
    item.feature = r.text(object, path, "feature", false);
    item.quantity = r.number(object, path, "quantity", false);
    item.rate = r.number(object, path, "rate", false);
    item.ratio = r.number(object, path, "ratio", false);
    item.unitProject = r.boolean(object, path, "unitProject");
}

void ProjectParser::tree(const QJsonObject& object, const QString& path, TreeItemData& item, bool model,
                         int depth) {
    if (!r.ok())
        return;
    if (depth > maxTreeDepth) {
        r.failWith(path, QStringLiteral("expected at most %1 levels of items").arg(maxTreeDepth));
        return;
    }
    if (model)
        r.checkKeys(object, path,
                    {"name", "code", "unit", "value", "dataType", "indexRule", "scoreRule", "attribute",
                     "upperLimit", "lowerLimit", "precision", "attributeData", "items"});
    else
        r.checkKeys(object, path,
                    {"name", "code", "attribute", "unit", "feature", "quantity", "rate", "ratio",
                     "unitProject", "upperLimit", "lowerLimit", "precision", "items"});
    item.name = r.text(object, path, "name", false);
    item.code = r.text(object, path, "code", false);
    item.unit = r.text(object, path, "unit", false);
    item.attribute = r.integer(object, path, "attribute", false);
    item.precision = r.integer(object, path, "precision", false, 2, 0, 10);
    const bool hasUpper = r.has(object, "upperLimit");
    if (hasUpper != r.has(object, "lowerLimit") && r.ok())
        r.failWith(JsonReader::member(path, hasUpper ? "lowerLimit" : "upperLimit"),
                   QStringLiteral("expected a number, given together with %1, found nothing")
                       .arg(hasUpper ? QStringLiteral("\"upperLimit\"") : QStringLiteral("\"lowerLimit\"")));
    item.hasLimits = hasUpper;
    item.upperLimit = r.number(object, path, "upperLimit", false, 5.0);
    item.lowerLimit = r.number(object, path, "lowerLimit", false, 2.0);
    if (model)
        modelFields(object, path, item);
    else
        pricingFields(object, path, item);
    const QJsonArray children = r.array(object, path, "items", false);
    const QString childrenPath = JsonReader::member(path, "items");
    for (int i = 0; i < children.size() && r.ok(); ++i) {
        TreeItemData child;
        tree(r.objectAt(children, i, childrenPath), JsonReader::element(childrenPath, i), child, model,
             depth + 1);
        item.items.append(child);
    }
}

} // namespace

bool readJsonProject(const QByteArray& bytes, const ImportOptions& options, ProjectFile& project,
                     ReadError& error) {
    JsonReader reader(project.fileName);
    QJsonObject root;
    if (reader.parse(bytes, root)) {
        reader.integer(root, QStringLiteral("$"), "formatVersion", false, 1, 1, 1, QStringLiteral("1"));
        const QString product = reader.text(root, QStringLiteral("$"), "product", true);
        project.product = productCode(product);
        if (reader.ok() && project.product == 0)
            reader.fail(
                QStringLiteral("$.product"),
                QStringLiteral("\"schedule\", \"Ash\", \"Elm\", \"Fir\", \"Yew\", \"Oak\" or \"Shape\""),
                root.value(QLatin1String("product")));
        ProjectParser parser(reader);
        if (reader.ok() && project.product == MarkCode::ProductSked) {
            project.kind = ProjectKind::Schedule;
            ImportedSchedule imported;
            parser.schedule(root, imported);
            error = reader.error();
            return reader.ok() && buildSchedule(imported, options, project.schedule, error);
        }
        if (reader.ok()) {
            const bool model = project.product == MarkCode::ProductShape;
            project.kind = model ? ProjectKind::Model : ProjectKind::Pricing;
            reader.checkKeys(root, QStringLiteral("$"), {"formatVersion", "product", "root"});
            parser.tree(reader.object(root, QStringLiteral("$"), "root", true), QStringLiteral("$.root"),
                        project.root, model, 1);
        }
    }
    error = reader.error();
    return reader.ok();
}

} // namespace Host
