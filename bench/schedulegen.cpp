#include "schedulegen.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

#include <algorithm>

namespace BenchGen {

namespace {

// Resource names as a Site project writes them; the library normalises most of them.
QStringList resourceNames() {
    return {QStringLiteral("钢筋工"),       QStringLiteral("木工"),     QStringLiteral("混凝土工"),
            QStringLiteral("钢筋"),         QStringLiteral("成品钢筋"), QStringLiteral("模板"),
            QStringLiteral("砼"),           QStringLiteral("砂石"),     QStringLiteral("水泥"),
            QStringLiteral("发电机组"),     QStringLiteral("供水泵机"), QStringLiteral("钢筋加工机"),
            QStringLiteral("混凝土搅拌机"), QStringLiteral("架子工"),   QStringLiteral("瓦工"),
            QStringLiteral("电工"),         QStringLiteral("焊工"),     QStringLiteral("油漆工"),
            QStringLiteral("防水卷材"),     QStringLiteral("脚手架")};
}

QString itemName(int i) {
    return QStringLiteral("工序%1").arg(i, 6, 10, QLatin1Char('0'));
}

QString renamed(int i) {
    return QStringLiteral("改名工序%1").arg(i);
}

QString unitOf(int i) {
    static const QStringList units{QStringLiteral("m³"), QStringLiteral("m²"), QStringLiteral("t")};
    return units[i % units.size()];
}

// A fixed pseudo-random number for (item, draw), independent of the schedule's size.
quint32 draw(int item, int which) {
    quint64 x = quint64(item) * 0x9E3779B97F4A7C15ull + quint64(which) * 0xBF58476D1CE4E5B9ull + 1;
    x ^= x >> 31;
    x *= 0x94D049BB133111EBull;
    x ^= x >> 29;
    return quint32(x >> 16);
}

struct Item {
    QString name;
    int duration = 7;
    QVector<int> predecessors; // positions, ascending
};

QVector<Item> standardItems(int n) {
    QVector<Item> items(n);
    for (int i = 0; i < n; ++i) {
        items[i].name = itemName(i);
        items[i].duration = 1 + int(draw(i, 0) % 20);
        const int count = i == 0 ? 0 : 1 + int(draw(i, 1) % 3);
        for (int k = 0; k < count; ++k) {
            const int p = i - 1 - int(draw(i, 2 + k) % std::min(i, 20));
            if (!items[i].predecessors.contains(p))
                items[i].predecessors.append(p);
        }
        std::sort(items[i].predecessors.begin(), items[i].predecessors.end());
    }
    return items;
}

QVector<Item> candidateItems(int n) {
    QVector<Item> items = standardItems(n);
    for (int i = 0; i < n; ++i) {
        if (i % 20 == 3)
            items[i].name = renamed(i);
        if (i % 20 == 7)
            items[i].duration += 1;
        if (i % 20 == 11 && !items[i].predecessors.isEmpty())
            items[i].predecessors.removeFirst();
    }
    return items;
}

int totalDays(const QVector<Item>& items) {
    QVector<int> finish(items.size());
    int total = 0;
    for (int i = 0; i < items.size(); ++i) {
        int start = 0;
        for (int p : items[i].predecessors)
            start = std::max(start, finish[p]);
        finish[i] = start + items[i].duration;
        total = std::max(total, finish[i]);
    }
    return total;
}

QJsonObject workItem(const Item& item, int i) {
    QJsonArray predecessors;
    for (int p : item.predecessors)
        predecessors.append(p + 1);
    QJsonObject object{
        {QStringLiteral("id"), i + 1},
        {QStringLiteral("name"), item.name},
        {QStringLiteral("quantityCode"), QStringLiteral("01%1").arg(i, 7, 10, QLatin1Char('0'))},
        {QStringLiteral("quantityName"), item.name + QStringLiteral("清单项")},
        {QStringLiteral("unit"), unitOf(i)},
        {QStringLiteral("plannedQuantity"), 100 + i % 50},
        {QStringLiteral("duration"), item.duration},
        {QStringLiteral("color"), QStringLiteral("255,128,0")},
        {QStringLiteral("lineWidth"), QString::number(1 + i % 4)},
        {QStringLiteral("labourIntensity"), QString::number(1 + i % 4)},
        {QStringLiteral("crew"), QStringLiteral("土建班组")},
        {QStringLiteral("materialTotal"), 20 + i % 10}};
    if (!predecessors.isEmpty())
        object.insert(QStringLiteral("predecessors"), predecessors);
    return object;
}

// Node 1 starts the diagram and node i + 2 ends item i, which starts at the end of its latest
// predecessor; dummies carry the other predecessors there, and items without a successor reach the
// last node, n + 2, through a dummy.
QJsonObject arrowDiagram(const QVector<Item>& items) {
    const int n = items.size();
    QJsonArray nodes;
    for (int node = 1; node <= n + 2; ++node)
        nodes.append(node);
    QJsonArray arrows;
    QVector<bool> hasSuccessor(n, false);
    const auto dummy = [&arrows](int from, int to) {
        arrows.append(QJsonObject{
            {QStringLiteral("from"), from}, {QStringLiteral("to"), to}, {QStringLiteral("dummy"), true}});
    };
    for (int i = 0; i < n; ++i) {
        const QVector<int>& predecessors = items[i].predecessors;
        const int start = predecessors.isEmpty() ? 1 : predecessors.last() + 2;
        for (int k = 0; k + 1 < predecessors.size(); ++k)
            dummy(predecessors[k] + 2, start);
        arrows.append(QJsonObject{{QStringLiteral("from"), start},
                                  {QStringLiteral("to"), i + 2},
                                  {QStringLiteral("workItem"), i + 1}});
        for (int p : predecessors)
            hasSuccessor[p] = true;
    }
    for (int i = 0; i < n; ++i)
        if (!hasSuccessor[i])
            dummy(i + 2, n + 2);
    return QJsonObject{{QStringLiteral("nodes"), nodes}, {QStringLiteral("arrows"), arrows}};
}

// One curve per resource: a weekly step function over the project, at most 300 steps.
QJsonArray curves(int days, bool candidate) {
    QJsonArray list;
    const QStringList names = resourceNames();
    const int weeks = std::max(1, days / 7);
    const int step = std::max(1, weeks / 300);
    for (int r = 0; r < names.size(); ++r) {
        QJsonArray points;
        for (int week = step; week <= weeks; week += step) {
            const int amount = int(draw(week, 100 + r) % 10) + (candidate ? int(draw(week, 200 + r) % 3) : 0);
            points.append(
                QJsonObject{{QStringLiteral("minute"), week * 10080}, {QStringLiteral("amount"), amount}});
        }
        list.append(QJsonObject{{QStringLiteral("name"), names[r]},
                                {QStringLiteral("drawnByCandidate"), candidate},
                                {QStringLiteral("points"), points}});
    }
    return list;
}

QByteArray project(const QVector<Item>& items, bool candidate) {
    QJsonArray workItems;
    for (int i = 0; i < items.size(); ++i)
        workItems.append(workItem(items[i], i));
    QJsonArray resources;
    for (const QString& name : resourceNames())
        resources.append(QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("plannedTotal"), 100}});
    const QJsonObject root{
        {QStringLiteral("formatVersion"), 1},
        {QStringLiteral("product"), QStringLiteral("schedule")},
        {QStringLiteral("scene"), QStringLiteral("Site")},
        {QStringLiteral("workItems"), workItems},
        {QStringLiteral("arrowDiagram"), arrowDiagram(items)},
        {QStringLiteral("gantt"), QJsonObject{{QStringLiteral("timeUnit"), QStringLiteral("工程周")},
                                              {QStringLiteral("rowsPerPage"), 40}}},
        {QStringLiteral("resources"), resources},
        {QStringLiteral("resourceCurves"), curves(totalDays(items), candidate)}};
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray siteStandard(int n) {
    return project(standardItems(n), false);
}

QByteArray siteCandidate(int n) {
    return project(candidateItems(n), true);
}

} // namespace BenchGen
