#pragma once

#include <QList>
#include <QRandomGenerator>

namespace coagulation {

// The random source of the database generator: one seeded stream per kind of data, so that
// changing how many patients are made leaves the QC data as it was.
class LabRandom
{
public:
    LabRandom(quint32 seed, quint32 stream);

    double uniform(); // [0, 1)
    double uniform(double low, double high);
    int between(int low, int high); // low to high inclusive
    bool chance(double probability);
    double normal(double mean, double sd);
    // Index into a list of non-negative weights, drawn in proportion to them.
    int weighted(const QList<int>& weights);

    template <typename T> const T& pick(const QList<T>& list)
    {
        return list.at(between(0, int(list.size()) - 1));
    }

private:
    QRandomGenerator m_generator;
};

} // namespace coagulation
