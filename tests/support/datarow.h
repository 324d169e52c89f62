// One row of a QtTest data table: its tag, then its cells in the order of the columns.
#ifndef DATAROW_H
#define DATAROW_H

#include <QTest>

template <typename... Cells> void row(const char* tag, const Cells&... cells) {
    (QTest::newRow(tag) << ... << cells);
}

#endif // DATAROW_H
