// Fuzz target for the course files beside the project files: the same input is read as a marks file
// and as a course settings file; each is read whole or refused with a reason.
#include "fuzz_common.h"

#include "coursesettings.h"
#include "marks.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    Host::ReadError error;
    Grade::Marks marks;
    if (Grade::readMarksDocument(bytes, QStringLiteral("marks"), marks, error) == error.isSet())
        std::abort();
    Host::CourseSettings settings;
    error = Host::ReadError();
    if (Host::readCourseSettingsDocument(bytes, QStringLiteral("settings"), settings, error) == error.isSet())
        std::abort();
    return 0;
}

QList<QByteArray> fuzzSeeds() {
    return {R"({"schedule":{"integrity":15,"logic":20},"pricing":100,"model":50})",
            R"({"scene":"Site","durations":"weeks","gantt":{"timeUnit":"工程周","rowsPerPage":20},
               "resourceNames":{"Carpenter":"模板工"},"curveLimits":{"labour":2.5},"networkLimit":500})"};
}
