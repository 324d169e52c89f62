// Names of the scenes and resources family: the Site scene's resource catalogue (labour, work
// processes, colours, curve charts), the names of its preparatory element types, and the table that
// turns a resource text of a project into its canonical resource name.
#ifndef SCENETEXTS_P_H
#define SCENETEXTS_P_H

#include <QHash>
#include <QString>
#include <QStringList>

namespace SceneText {

// Canonical labour names; they are also the labour names of the Site scene's work processes.
inline QString rebarWorker() {
    return QStringLiteral("钢筋工");
}
inline QString formworkWorker() {
    return QStringLiteral("模板工");
}
inline QString concreteWorker() {
    return QStringLiteral("混凝土工");
}

// Canonical material and machinery names.
inline QString rawRebar() {
    return QStringLiteral("钢筋原材");
}
inline QString finishedRebar() {
    return QStringLiteral("成品钢筋");
}
inline QString formwork() {
    return QStringLiteral("模板");
}
inline QString readyConcrete() {
    return QStringLiteral("成品混凝土");
}
inline QString sandGravel() {
    return QStringLiteral("砂石");
}
inline QString cement() {
    return QStringLiteral("水泥");
}
inline QString generator() {
    return QStringLiteral("发电机组");
}
inline QString waterPump() {
    return QStringLiteral("供水泵机");
}
inline QString concreteMixer() {
    return QStringLiteral("混凝土搅拌机");
}
inline QString rebarProcessor() {
    return QStringLiteral("钢筋加工机");
}

// Work processes of the Site labour resources, in the order of the labour codes.
inline QString tieRebar() {
    return QStringLiteral("绑钢筋");
}
inline QString erectFormwork() {
    return QStringLiteral("支模板");
}
inline QString pourConcrete() {
    return QStringLiteral("浇筑混凝土");
}

inline QString yellow() {
    return QStringLiteral("黄色");
}
inline QString green() {
    return QStringLiteral("绿色");
}
inline QString pink() {
    return QStringLiteral("粉色");
}

// Resource-curve charts of the Site scene.
inline QString rebarWorkerCurve() {
    return QStringLiteral("钢筋工曲线图");
}
inline QString formworkWorkerCurve() {
    return QStringLiteral("模板工/木工曲线图");
}
inline QString concreteWorkerCurve() {
    return QStringLiteral("混凝土工/砼工曲线图");
}
inline QString rebarMaterialCurve() {
    return QStringLiteral("钢筋原材/成品钢筋计划曲线图");
}
inline QString formworkMaterialCurve() {
    return QStringLiteral("模板计划曲线图");
}
inline QString concreteMaterialCurve() {
    return QStringLiteral("混凝土/水泥、砂石计划曲线图");
}
inline QString rebarMachineCurve() {
    return QStringLiteral("钢筋加工机曲线图");
}
inline QString mixerCurve() {
    return QStringLiteral("混凝土搅拌机曲线图");
}
inline QString generatorCurve() {
    return QStringLiteral("小型/大型发电机曲线图");
}
inline QString waterPumpCurve() {
    return QStringLiteral("小型/大型供水泵机曲线图");
}

// Preparatory element types of the Site scene.
inline QString temporaryWorks() {
    return QStringLiteral("临建建造");
}
inline QString rebarPreparation() {
    return QStringLiteral("钢筋准备");
}

// Texts that projects use for a resource, mapped to the canonical resource name. Texts are matched
// whole and case-sensitively; a text missing here is its own name.
inline const QHash<QString, QString>& resourceNameTable() {
    static const QHash<QString, QString> table = [] {
        QHash<QString, QString> result;
        const auto add = [&result](const QString& canonical, const QStringList& texts) {
            for (const QString& text : texts) {
                if (!result.contains(text)) // the first entry that lists a text wins
                    result.insert(text, canonical);
            }
        };
        add(formworkWorker(), {QStringLiteral("木工")});
        add(concreteWorker(), {QStringLiteral("砼工")});
        add(rawRebar(), {QStringLiteral("钢筋"), QStringLiteral("原材钢筋")});
        add(readyConcrete(), {QStringLiteral("混凝土"), QStringLiteral("砼"), QStringLiteral("混凝土成品")});
        add(finishedRebar(), {QStringLiteral("钢筋成品")});
        add(sandGravel(), {QStringLiteral("砂石原材")});
        add(cement(), {QStringLiteral("水泥原材")});
        add(rebarProcessor(), {QStringLiteral("钢筋加工"), QStringLiteral("钢筋加工机械")});
        add(concreteMixer(), {QStringLiteral("混凝土加工机"), QStringLiteral("混凝土搅拌"),
                              QStringLiteral("混凝土机械"), QStringLiteral("混凝土搅拌机械")});
        add(generator(), {QStringLiteral("大型发电机"), QStringLiteral("小型发电机"),
                          QStringLiteral("发电机组（大）"), QStringLiteral("发电机组(大)"),
                          QStringLiteral("发电机组（小）"), QStringLiteral("发电机组(小)")});
        add(waterPump(), {QStringLiteral("大型供水泵机"), QStringLiteral("小型供水泵机"),
                          QStringLiteral("供水泵机（小）"), QStringLiteral("供水泵机(小)"),
                          QStringLiteral("供水泵机（大）"), QStringLiteral("供水泵机(大)")});
        return result;
    }();
    return table;
}

} // namespace SceneText

#endif // SCENETEXTS_P_H
