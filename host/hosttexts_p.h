// The reference host's own Chinese texts: the remarks of the network-plan findings. Written once,
// here; the resource, chart and category names are the library's (markruletables.h).
#ifndef HOSTTEXTS_P_H
#define HOSTTEXTS_P_H

#include <QString>

namespace HostTexts {

// Separator of node lists and the arrow of a logic display text.
inline QString listSeparator() {
    return QStringLiteral("、");
}
inline QString logicArrow() {
    return QStringLiteral("→");
}
inline QString none() {
    return QStringLiteral("无");
}

// Network-plan findings.
inline QString startEndNodes() {
    return QStringLiteral("开始节点：%1；结束节点：%2");
}
inline QString brokenNodes() {
    return QStringLiteral("断开处节点编号：%1");
}
inline QString diagramNotDrawn() {
    return QStringLiteral("未绘制网络图");
}

} // namespace HostTexts

#endif // HOSTTEXTS_P_H
