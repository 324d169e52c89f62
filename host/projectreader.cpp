#include "projectreader.h"

#include "scheduleanalysis.h"

#include <QFile>
#include <QHash>
#include <QSet>

namespace Host {

namespace {

const int maxDuration = 1000000; // days; keeps sums of durations far from overflow
const int maxTreeDepth = 64;

class ProjectParser {
public:
    explicit ProjectParser(JsonReader& reader) : r(reader) {}

    void schedule(const QJsonObject& root, ScheduleProject& project);
    void tree(const QJsonObject& object, const QString& path, TreeItemData& item, bool model, int depth);

private:
    void workItems(const QJsonArray& array, const QString& path, ScheduleProject& project);
    void diagram(const QJsonObject& object, const QString& path, ArrowDiagram& diagram);
    void gantt(const QJsonObject& object, const QString& path, const ScheduleProject& project,
               GanttSettings& gantt);
    void resources(const QJsonArray& array, const QString& path, QList<ResourceData>& out);
    void curves(const QJsonArray& array, const QString& path, QList<CurveData>& out);

    JsonReader& r;
    QHash<int, int> m_positionOfId; // work-item id -> position
};

QString cycleText(const QVector<int>& cycle, const std::function<QString(int)>& label) {
    QStringList parts;
    for (int v : cycle)
        parts << label(v);
    return parts.join(QStringLiteral(" → "));
}

void ProjectParser::schedule(const QJsonObject& root, ScheduleProject& project) {
    r.checkKeys(root, QStringLiteral("$"),
                {"formatVersion", "product", "scene", "workItems", "arrowDiagram", "gantt", "resources",
                 "resourceCurves"});
    const QString scene = r.text(root, QStringLiteral("$"), "scene", false, QStringLiteral("plain"));
    if (scene == QLatin1String("plain"))
        project.scene = PlainScene;
    else if (scene == QLatin1String("Site"))
        project.scene = SiteScene;
    else if (scene == QLatin1String("Twin"))
        project.scene = TwinScene;
    else
        r.fail(QStringLiteral("$.scene"), QStringLiteral("\"plain\", \"Site\" or \"Twin\""),
               root.value(QLatin1String("scene")));

    workItems(r.array(root, QStringLiteral("$"), "workItems", true), QStringLiteral("$.workItems"), project);
    if (!r.ok())
        return;
    QVector<int> cycle;
    if (!scheduleTimes(project.workItems, project.totalDays, cycle)) {
        r.failWith(QStringLiteral("$.workItems"),
                   QStringLiteral("expected predecessors without a cycle, found the cycle %1")
                       .arg(cycleText(cycle, [&](int v) { return project.workItems[v].name; })));
        return;
    }
    project.hasDiagram = r.has(root, "arrowDiagram");
    diagram(r.object(root, QStringLiteral("$"), "arrowDiagram", false), QStringLiteral("$.arrowDiagram"),
            project.diagram);
    gantt(r.object(root, QStringLiteral("$"), "gantt", false), QStringLiteral("$.gantt"), project,
          project.gantt);
    resources(r.array(root, QStringLiteral("$"), "resources", false), QStringLiteral("$.resources"),
              project.resources);
    curves(r.array(root, QStringLiteral("$"), "resourceCurves", false), QStringLiteral("$.resourceCurves"),
           project.curves);
}

void ProjectParser::workItems(const QJsonArray& array, const QString& path, ScheduleProject& project) {
    QList<QJsonArray> predecessorLists;
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject object = r.objectAt(array, i, path);
        r.checkKeys(object, at,
                    {"id", "name", "quantityCode", "quantityName", "unit", "plannedQuantity", "duration",
                     "fixedDuration", "color", "lineWidth", "labourIntensity", "crew", "materialTotal",
                     "predecessors"});
        WorkItemData item;
        item.id = r.integer(object, at, "id", true);
        if (r.ok() && m_positionOfId.contains(item.id))
            r.failWith(JsonReader::member(at, "id"),
                       QStringLiteral("expected an id not used before, found %1, the id of $.workItems[%2]")
                           .arg(item.id)
                           .arg(m_positionOfId.value(item.id)));
        item.name = r.text(object, at, "name", true);
        if (r.ok() && (item.name.isEmpty() || item.name.contains(QLatin1Char(';')) ||
                       item.name.contains(QLatin1Char('&'))))
            r.fail(JsonReader::member(at, "name"), QStringLiteral("a non-empty text without ';' or '&'"),
                   object.value(QLatin1String("name")));
        item.quantityCode = r.text(object, at, "quantityCode", false);
        item.quantityName = r.text(object, at, "quantityName", false);
        item.unit = r.text(object, at, "unit", false);
        item.plannedQuantity = r.number(object, at, "plannedQuantity", false);
        item.duration = r.integer(object, at, "duration", true, 0, 0, maxDuration,
                                  QStringLiteral("a whole number of days of at least 0"));
        item.fixedDuration = r.boolean(object, at, "fixedDuration");
        item.color = r.textOrNumber(object, at, "color");
        item.lineWidth = r.textOrNumber(object, at, "lineWidth");
        item.labourIntensity = r.textOrNumber(object, at, "labourIntensity");
        item.crew = r.text(object, at, "crew", false);
        item.materialTotal = r.number(object, at, "materialTotal", false);
        predecessorLists.append(r.array(object, at, "predecessors", false));
        m_positionOfId.insert(item.id, project.workItems.size());
        project.workItems.append(item);
    }
    // Predecessors refer to ids anywhere in the list, so they are resolved once all ids are known.
    for (int i = 0; i < project.workItems.size() && r.ok(); ++i) {
        const QString listPath = JsonReader::member(JsonReader::element(path, i), "predecessors");
        QSet<int> seen;
        for (int k = 0; k < predecessorLists[i].size() && r.ok(); ++k) {
            int id = 0;
            const QString at = JsonReader::element(listPath, k);
            if (!r.readInteger(predecessorLists[i].at(k), at, std::numeric_limits<int>::min(),
                               std::numeric_limits<int>::max(), QStringLiteral("the id of a work item"), id))
                break;
            if (!m_positionOfId.contains(id)) {
                r.failWith(at,
                           QStringLiteral("expected the id of a work item, found %1, which no work item has")
                               .arg(id));
                break;
            }
            if (!seen.contains(id)) { // a repeated predecessor adds nothing
                seen.insert(id);
                const int position = m_positionOfId.value(id);
                project.workItems[i].predecessors.append(position);
                project.workItems[i].links.append(LinkData{position, LinkType::FinishToStart, 0});
            }
        }
    }
}

void ProjectParser::diagram(const QJsonObject& object, const QString& path, ArrowDiagram& diagram) {
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
        diagram.nodes.append(number);
    }
    const QJsonArray arrows = r.array(object, path, "arrows", true);
    const QString arrowsPath = JsonReader::member(path, "arrows");
    for (int i = 0; i < arrows.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(arrowsPath, i);
        const QJsonObject arrowObject = r.objectAt(arrows, i, arrowsPath);
        r.checkKeys(arrowObject, at, {"from", "to", "workItem", "dummy"});
        ArrowData arrow;
        const QString nodeText = QStringLiteral("a node number listed in %1").arg(nodesPath);
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
        if (r.ok() && hasWorkItem) {
            const int id =
                r.integer(arrowObject, at, "workItem", true, 0, std::numeric_limits<int>::min(),
                          std::numeric_limits<int>::max(), QStringLiteral("the id of a work item"));
            if (r.ok() && !m_positionOfId.contains(id))
                r.failWith(JsonReader::member(at, "workItem"),
                           QStringLiteral("expected the id of a work item, found %1, which no work item has")
                               .arg(id));
            arrow.workItem = m_positionOfId.value(id, -1);
        }
        diagram.arrows.append(arrow);
    }
    QVector<int> cycle;
    if (r.ok() && !diagramIsAcyclic(diagram, cycle))
        r.failWith(arrowsPath,
                   QStringLiteral("expected arrows without a cycle, found the cycle through nodes %1")
                       .arg(cycleText(cycle, [](int v) { return QString::number(v); })));
}

void ProjectParser::gantt(const QJsonObject& object, const QString& path, const ScheduleProject& project,
                          GanttSettings& gantt) {
    if (!r.ok())
        return;
    r.checkKeys(object, path, {"timeUnit", "rowsPerPage", "order"});
    gantt.timeUnit = r.text(object, path, "timeUnit", false);
    gantt.rowsPerPage = r.integer(object, path, "rowsPerPage", false, 0, 0);
    if (r.has(object, "order")) {
        gantt.order = r.textList(object, path, "order");
    } else {
        for (const WorkItemData& item : project.workItems)
            gantt.order << item.name;
    }
}

void ProjectParser::resources(const QJsonArray& array, const QString& path, QList<ResourceData>& out) {
    for (int i = 0; i < array.size() && r.ok(); ++i) {
        const QString at = JsonReader::element(path, i);
        const QJsonObject object = r.objectAt(array, i, path);
        r.checkKeys(object, at, {"name", "plannedTotal", "code", "unit"});
        ResourceData resource;
        resource.name = r.text(object, at, "name", true);
        resource.plannedTotal = r.integer(object, at, "plannedTotal", false);
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
            const int after = curve.points.isEmpty() ? 0 : curve.points.last().minute + 1;
            point.minute = r.integer(
                pointObject, pointPath, "minute", true, 0, after, std::numeric_limits<int>::max(),
                curve.points.isEmpty() ? QStringLiteral("a whole number of minutes of at least 0")
                                       : QStringLiteral("a whole number of minutes after %1").arg(after - 1));
            point.amount = r.number(pointObject, pointPath, "amount", true, 0.0, 0.0);
            curve.points.append(point);
        }
        out.append(curve);
    }
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
    if (model) {
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
            r.fail(JsonReader::member(path, "dataType"),
                   QStringLiteral("\"text\", \"number\" or \"integer\""),
                   object.value(QLatin1String("dataType")));
        item.indexRule = r.integer(object, path, "indexRule", false, 1);
        item.scoreRule = r.integer(object, path, "scoreRule", false, 0);
        item.attributeData = r.textList(object, path, "attributeData");
    } else {
        item.feature = r.text(object, path, "feature", false);
        item.quantity = r.number(object, path, "quantity", false);
        item.rate = r.number(object, path, "rate", false);
        item.ratio = r.number(object, path, "ratio", false);
        item.unitProject = r.boolean(object, path, "unitProject");
    }
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

int productCode(const QString& name) {
    static const QHash<QString, int> codes{{QStringLiteral("schedule"), ScheduleProduct},
                                           {QStringLiteral("Ash"), Ash},
                                           {QStringLiteral("Elm"), Elm},
                                           {QStringLiteral("Fir"), Fir},
                                           {QStringLiteral("Yew"), Yew},
                                           {QStringLiteral("Oak"), Oak},
                                           {QStringLiteral("Shape"), Shape}};
    return codes.value(name, 0);
}

QString productName(int code) {
    switch (code) {
    case ScheduleProduct:
        return QStringLiteral("schedule");
    case Ash:
        return QStringLiteral("Ash");
    case Elm:
        return QStringLiteral("Elm");
    case Fir:
        return QStringLiteral("Fir");
    case Yew:
        return QStringLiteral("Yew");
    case Oak:
        return QStringLiteral("Oak");
    case Shape:
        return QStringLiteral("Shape");
    default:
        return QString();
    }
}

QString sceneName(int scene) {
    return scene == SiteScene   ? QStringLiteral("Site")
           : scene == TwinScene ? QStringLiteral("Twin")
                                : QStringLiteral("plain");
}

bool readProjectDocument(const QByteArray& bytes, const QString& fileName, ProjectFile& project,
                         ReadError& error) {
    JsonReader reader(fileName);
    project = ProjectFile();
    project.fileName = fileName;
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
        if (reader.ok() && project.product == ScheduleProduct) {
            project.kind = ProjectKind::Schedule;
            parser.schedule(root, project.schedule);
        } else if (reader.ok()) {
            const bool model = project.product == Shape;
            project.kind = model ? ProjectKind::Model : ProjectKind::Pricing;
            reader.checkKeys(root, QStringLiteral("$"), {"formatVersion", "product", "root"});
            parser.tree(reader.object(root, QStringLiteral("$"), "root", true), QStringLiteral("$.root"),
                        project.root, model, 1);
        }
    }
    error = reader.error();
    if (!reader.ok())
        project = ProjectFile();
    return reader.ok();
}

bool readProjectFile(const QString& path, ProjectFile& project, ReadError& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        project = ProjectFile();
        error = ReadError{path, QString(), QStringLiteral("cannot be read: %1").arg(file.errorString())};
        return false;
    }
    return readProjectDocument(file.readAll(), path, project, error);
}

} // namespace Host
