// The reference host's own Chinese texts: the remarks of the network-plan findings. Written once,
// here; the resource, chart and category names are the library's (markruletables.h).
#ifndef HOSTTEXTS_P_H
#define HOSTTEXTS_P_H

#include <QString>

namespace HostTexts {

// Separator of node lists, the arrow of a logic display text, and an empty list.
inline const QString listSeparator = QStringLiteral("、");
inline const QString logicArrow = QStringLiteral("→");
inline const QString none = QStringLiteral("无");

// Network-plan findings: the start and end nodes, the nodes where a line breaks off, no diagram.
inline const QString startEndNodes = QStringLiteral("开始节点：%1；结束节点：%2");
inline const QString brokenNodes = QStringLiteral("断开处节点编号：%1");
inline const QString diagramNotDrawn = QStringLiteral("未绘制网络图");

} // namespace HostTexts

#endif // HOSTTEXTS_P_H
