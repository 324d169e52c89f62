// Fair grading: every sample and fixture graded against itself earns exactly its full marks in every
// scene; a candidate that differs only in how a file writes names or colours loses nothing; what is
// missing is missing everywhere; curves that fluctuate more still lose.
#include "projectdump.h"
#include "samples.h"

#include <QtTest>

using namespace Host;
using namespace Grade;
using TestDump::row;

namespace {

ProjectFile readBytes(const QByteArray& bytes, const ImportOptions& options = ImportOptions()) {
    ProjectFile file;
    ReadError error;
    if (!readProjectDocument(bytes, QStringLiteral("t.json"), file, error, options))
        qWarning("%s", qPrintable(error.toString()));
    return file;
}

QByteArray sampleBytes(const QString& name) {
    QFile file(QStringLiteral(":/samples/%1.json").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const CategoryResult& categoryOf(const CandidateResult& result, int type) {
    for (const CategoryResult& category : result.categories)
        if (category.type == type)
            return category;
    qFatal("no category %d", type);
}

} // namespace

class TestFairness : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initSamples(); }

    void selfGrading_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("scene"); // for files that state none
        // (The sample candidates break rules that hold whatever the standard, such as whole weeks.)
        for (const char* sample : {"schedule-standard", "pricing-standard", "model-standard"})
            row(sample, QStringLiteral(":/samples/%1.json").arg(sample), int(MarkCode::ScenePlain));
        const QDir fixtures(QStringLiteral(FORMAT_FIXTURES));
        for (const QString& name : fixtures.entryList({QStringLiteral("house*")}, QDir::Files))
            for (int scene : {MarkCode::ScenePlain, MarkCode::SceneSite, MarkCode::SceneTwin})
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(name, sceneName(scene))))
                    << fixtures.filePath(name) << scene;
    }

    void selfGrading() {
        QFETCH(QString, path);
        QFETCH(int, scene);
        ImportOptions options;
        options.scene = scene;
        const ProjectFile file = TestDump::read(path, options);
        QVERIFY(!file.fileName.isEmpty());
        const CandidateResult result = gradeProject(file, file, Marks());
        QVERIFY(result.full() > 0.0);
        QCOMPARE(result.obtained(), result.full());
    }

    // What a file writes differently but means the same costs nothing; a real difference still does.
    void sameMeaning_data() {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        QTest::addColumn<double>("lost");
        row("trailing and inner spaces", QByteArray("\"name\": \"Roofing\""),
            QByteArray("\"name\": \" Roofing  \", \"color\": \"153,204,255\""), 0.0);
        row("colour as #rrggbb", QByteArray("\"name\": \"Roofing\""),
            QByteArray("\"name\": \"Roofing\", \"color\": \"#99ccff\""), 0.0);
        row("colour as #rgb", QByteArray("\"name\": \"Roofing\""),
            QByteArray("\"name\": \"Roofing\", \"color\": \"#9cf\""), 0.0);
        row("colour with spaces", QByteArray("\"name\": \"Roofing\""),
            QByteArray("\"name\": \"Roofing\", \"color\": \"153, 204, 255\""), 0.0);
        // Roofing's colour node is one of its nine attributes: 20 / 12 / 9.
        row("another colour", QByteArray("\"name\": \"Roofing\""),
            QByteArray("\"name\": \"Roofing\", \"color\": \"#99ccfe\""), 20.0 / 12 / 9);
    }

    void sameMeaning() {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QFETCH(double, lost);
        QFile twin(QStringLiteral(FORMAT_FIXTURES "/house.json"));
        QVERIFY(twin.open(QIODevice::ReadOnly));
        ImportOptions site;
        site.scene = MarkCode::SceneSite;
        // Durations that are not fixed, so that the Site scene judges every attribute.
        const QByteArray bytes =
            twin.readAll().replace("\"fixedDuration\": true", "\"fixedDuration\": false");
        const ProjectFile standard = readBytes(
            QByteArray(bytes).replace(from, "\"name\": \"Roofing\", \"color\": \"153,204,255\""), site);
        const ProjectFile candidate = readBytes(QByteArray(bytes).replace(from, to), site);
        const double itself = gradeProject(standard, standard, Marks()).obtained();
        QCOMPARE(itself - gradeProject(standard, candidate, Marks()).obtained() + 1.0, lost + 1.0);
    }

    // The standard draws a diagram and the candidate none: every principle fails for that reason.
    void diagramAbsentEverywhere() {
        const ProjectFile standard = readBytes(sampleBytes(QStringLiteral("schedule-standard")));
        ProjectFile candidate = standard;
        candidate.schedule.hasDiagram = false;
        candidate.schedule.diagram = ArrowDiagram();
        const CandidateResult result = gradeProject(standard, candidate, Marks());
        const CategoryResult& principles = categoryOf(result, 7);
        QCOMPARE(principles.obtained, 0.0);
        QStringList remarks;
        for (const ScoredNode& criterion : principles.tree.items)
            remarks << criterion.name + QLatin1Char('=') + criterion.remark;
        QCOMPARE(remarks,
                 (QStringList{"节点数=未绘制网络图", "线路完整性=未绘制网络图", "多余虚工作=未绘制网络图"}));
    }

    // Equal curves pass the standard's limit; curves that fluctuate more fail it.
    void curveLimits_data() {
        QTest::addColumn<double>("factor"); // applied to the candidate's first curve
        QTest::addColumn<double>("rationality");
        row("same curves", 1.0, 10.0);
        row("a curve three times as high", 3.0, 10.0 - 2.0);
    }

    void curveLimits() {
        QFETCH(double, factor);
        QFETCH(double, rationality);
        const ProjectFile standard = readBytes(sampleBytes(QStringLiteral("schedule-standard")));
        ProjectFile candidate = standard;
        for (CurvePoint& point : candidate.schedule.curves.first().points)
            point.amount *= factor;
        const CandidateResult result = gradeProject(standard, candidate, Marks());
        QCOMPARE(categoryOf(result, 6).obtained, rationality);
    }

    // Resources named in a tool's own words are reported until the course maps them.
    void unknownResources_data() {
        QTest::addColumn<bool>("mapped");
        QTest::addColumn<QString>("note");
        row("as the file names them", false,
            QStringLiteral("candidate: no Site rule knows the resources Labourer, Carpenter; map them to the "
                           "catalogue's names with resourceNames in the course settings"));
        row("mapped by the course", true, QString());
    }

    void unknownResources() {
        QFETCH(bool, mapped);
        QFETCH(QString, note);
        ImportOptions options;
        options.scene = MarkCode::SceneSite;
        if (mapped)
            options.resourceNames = {{"Labourer", "混凝土工"}, {"Carpenter", "模板工"}};
        const ProjectFile file = TestDump::read(QStringLiteral(FORMAT_FIXTURES "/house.xml"), options);
        const QStringList notes =
            gradeProject(file, file, Marks()).notes.filter(QStringLiteral("candidate: "));
        QCOMPARE(notes.join('\n'), note);
    }

    // Names that collide stay one duplicated criterion unless they are numbered.
    void duplicateNames_data() {
        QTest::addColumn<bool>("dedupe");
        QTest::addColumn<bool>("fullMarks");
        row("as written", false, false);
        row("numbered", true, true);
    }

    void duplicateNames() {
        QFETCH(bool, dedupe);
        QFETCH(bool, fullMarks);
        ImportOptions options;
        options.dedupeNames = dedupe;
        options.scene = MarkCode::SceneSite;
        const QByteArray bytes =
            R"({"product":"schedule","workItems":[{"id":1,"name":"Task 1","duration":7,"fixedDuration":true},
            {"id":2,"name":"Task 1","duration":14,"fixedDuration":true,"predecessors":[1]},
            {"id":3,"name":"Task 1","duration":7,"fixedDuration":true}]})";
        const ProjectFile file = readBytes(bytes, options);
        QCOMPARE(file.schedule.warnings.isEmpty(), dedupe);
        const CandidateResult result = gradeProject(file, file, Marks());
        QCOMPARE(result.obtained() == result.full(), fullMarks);
    }
};

QTEST_GUILESS_MAIN(TestFairness)
#include "tst_fairness.moc"
