// The numeric codes of the library's contract, by name. Every operation still takes and returns a
// plain int (`const int&`); these are unscoped enums, so each name converts to that int implicitly.
// The library itself writes the names, never the numbers; a host may do the same.
#ifndef MARKRULECODES_H
#define MARKRULECODES_H

namespace MarkCode {

// Products, the first argument of the factories. Every other value is refused.
enum Product : int {
    ProductSked = 5,       // construction schedules: categories, resources and scenes
    ProductScenesOnly = 6, // accepted by CreateSceneInfo alone
    ProductAsh = 9,        // pricing products, one rating-item class each
    ProductElm = 11,
    ProductFir = 13,
    ProductYew = 15,
    ProductOak = 17,
    ProductShape = 20, // building models
};

// Scenes of the schedule product; the keys of the scene registry. Any other value is the plain scene.
enum Scene : int {
    ScenePlain = 0,
    SceneSite = 1,
    SceneTwin = 2,
};

// Resource types that a scene answers: GetResourceType tells the three tables apart, and the Site
// scene's GetResourceTypeById names labour and the three kinds of material more finely.
enum ResourceType : int {
    ResourceNone = 0,
    ResourceLabour = 1,
    ResourceMaterial = 2,
    ResourceMachine = 3,
    ResourceRebar = 4,
    ResourceConcrete = 5,
    ResourceFormwork = 6,
};

// Category types of the schedule product, the keys of the category map, in creation order.
enum CategoryType : int {
    CategoryNone = 0, // the family base classes, which no factory makes
    CategoryIntegrity = 1,
    CategoryAttribute = 2,
    CategoryLogical = 3,
    CategoryResCurve = 4,
    CategoryGanttChart = 5,
    CategoryNetRationality = 6,
    CategoryNetPrinciple = 7,
    CategoryFirst = CategoryIntegrity,
    CategoryLast = CategoryNetPrinciple,
};

// Status that a scored item keeps, and the mode argument of ExecuteDBScore: the same numbers.
enum ScoreStatus : int {
    StatusNone = 0,      // not scored yet
    StatusOrdinary = 1,  // scored against a matching standard item
    StatusMissing = 2,   // made for a standard item the candidate lacks
    StatusDuplicate = 3, // a further candidate item of an already matched name (schedule items only)
    StatusSurplus = 4,   // a candidate item that matches no standard item
};
using ScoreMode = ScoreStatus;

// Attribute types of schedule criteria: which criterion an item is, set by the categories and read
// by the schedule item's rules. The quoted names are the criteria's names.
enum SkedAttribute : int {
    SkedIntegrityRoot = 1,     // root "工作项完整性"
    SkedWorkItemCount = 2,     // one work-item name and its count (unit "个")
    SkedAttributeRoot = 3,     // root "工作项属性"
    SkedWorkItemNode = 4,      // one work item of the attribute category
    SkedDuration = 5,          // "持续时间" (unit "天")
    SkedQuantityCode = 6,      // "工程量编码"
    SkedQuantityName = 7,      // "工程量名称"
    SkedPlannedQuantity = 8,   // "计划量"
    SkedQuantityUnit = 9,      // "单位"
    SkedColour = 10,           // "工序颜色" (unit "RGB")
    SkedLineWidth = 11,        // "工序线宽"
    SkedLabourIntensity = 12,  // "人力资源（强度）" (unit "班组")
    SkedMaterialTotal = 13,    // "材料资源（总量）"
    SkedNumericReserved = 14,  // set by no category; a numeric attribute for the surplus rule
    SkedLogicRoot = 15,        // root "逻辑关系"
    SkedLogicRelation = 16,    // one logic relation (chains of work-item names)
    SkedGanttRoot = 17,        // root "横道图合理性"
    SkedGanttTimeUnit = 18,    // "横道图时间单位"
    SkedGanttRowsPerPage = 19, // "横道图完整性显示"
    SkedGanttOrder = 20,       // "横道图完整性及排序"
    SkedCurveRoot = 21,        // root "资源曲线图正确性"
    SkedCurve = 22,            // one resource-curve check
    SkedPrincipleRoot = 23,    // root "网络计划原则"
    SkedNodeCount = 24,        // "节点数"
    SkedLineIntegrity = 25,    // "线路完整性"
    SkedSurplusDummy = 26,     // "多余虚工作"
    SkedRationalityRoot = 27,  // root "网络计划合理性"
    SkedTotalDuration = 28,    // "总工期"
    SkedLabourCurve = 29,      // "总人力资源曲线"
    SkedRebarCurve = 30,       // "成品钢筋/钢筋原材曲线"
    SkedConcreteCurve = 31,    // "成品混凝土/水泥、砂石资源曲线"
    SkedFormworkCurve = 32,    // "模板资源曲线"
};

// Index rules of the general item: which text identifies an item when two trees are matched. Any
// other value gives an empty text, so the item cannot be matched.
enum IndexRule : int {
    IndexByCode = 0,
    IndexByName = 1,
    IndexByAttributeList = 4, // the attribute data as a string list, joined with ","
    IndexByValue = 5,         // the value as stored
};

// Data types of a general item's value text.
enum DataType : int {
    DataText = 0,
    DataDouble = 1,
    DataInteger = 5,
};

// Score rules of the building-model items: how a leaf's value is compared with the standard's.
enum ShapeScoreRule : int {
    ScoreContrast = 0,       // equal text (text data) or equal number (numeric data)
    ScoreInterval = 1,       // a number inside the standard's tolerance band
    ScoreContainRatio = 101, // share of the standard text that the value contains
    ScoreValueRatio = 103,   // ratio of the numbers
    ScoreSegmentRatio = 104, // ratio of the numbers, by a table of segments
};

// Attribute types that the pricing items tell apart (the others only travel with the item). What
// each stands for in a pricing file is the host's; the library knows how each one matches.
enum TallyAttribute : int {
    TallyAnyChild = 1,   // an unmatched standard child is scored against the first candidate
    TallyKeepAdded2 = 2, // 2, 3, 4, 15, 17, 18: no missing items, surplus left alone, and the
    TallyKeepAdded3 = 3, // children list returns to every added child after scoring
    TallyKeepAdded4 = 4,
    TallyMatchByCode = 10,        // children keyed by code
    TallyMatchByCodeAndName = 11, // children keyed by code followed by name
    TallyKeepAdded15 = 15,
    TallyKeepAdded17 = 17,
    TallyKeepAdded18 = 18,
};

} // namespace MarkCode

#endif // MARKRULECODES_H
