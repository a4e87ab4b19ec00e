#include "labrandom.h"

#include <cmath>
#include <numeric>

namespace coagulation {

namespace {
constexpr double twoPi = 6.283185307179586;

QRandomGenerator seeded(quint32 seed, quint32 stream)
{
    const quint32 sequence[] = {seed, stream};
    return QRandomGenerator(sequence, 2);
}
} // namespace

LabRandom::LabRandom(quint32 seed, quint32 stream) : m_generator(seeded(seed, stream)) {}

double LabRandom::uniform()
{
    return m_generator.generateDouble();
}

double LabRandom::uniform(double low, double high)
{
    return low + (high - low) * uniform();
}

int LabRandom::between(int low, int high)
{
    if (high <= low)
        return low;
    return int(m_generator.bounded(qint64(low), qint64(high) + 1));
}

bool LabRandom::chance(double probability)
{
    return uniform() < probability;
}

double LabRandom::normal(double mean, double sd)
{
    // Box-Muller; 1 - u keeps the logarithm's argument in (0, 1].
    const double u1 = 1.0 - uniform();
    const double u2 = uniform();
    return mean + sd * std::sqrt(-2.0 * std::log(u1)) * std::cos(twoPi * u2);
}

int LabRandom::weighted(const QList<int>& weights)
{
    const int total = std::accumulate(weights.cbegin(), weights.cend(), 0);
    if (total <= 0)
        return 0;
    int draw = between(0, total - 1);
    for (int i = 0; i < weights.size(); ++i) {
        if (draw < weights.at(i))
            return i;
        draw -= weights.at(i);
    }
    return int(weights.size()) - 1;
}

} // namespace coagulation
