// The built-in sample exam (Qt resources under :/samples) and the generator of candidate batches.
#ifndef SAMPLES_H
#define SAMPLES_H

#include <QPair>
#include <QString>
#include <QStringList>

namespace Grade {

// Registers the sample resources; call once before reading them.
void initSamples();

// The standard and candidate resource paths of the sample exam: schedule, pricing, model.
QList<QPair<QString, QString>> samplePairs();

// Writes DIR/standard.json (the sample schedule standard) and count candidates
// DIR/candidate-0001.json ..., variations of the sample candidate; the middle one is cut short, so
// that it cannot be read. With stages > 1 every schedule chains that many copies of the sample's 30
// work items, each copy after the one before, for batches of large projects. Fills files with the
// candidates' paths; false with a message on failure.
bool generateBatch(const QString& dir, int count, QStringList& files, QString& error, int stages = 1);

} // namespace Grade

#endif // SAMPLES_H
