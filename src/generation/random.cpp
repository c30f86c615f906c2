#include "random.h"

double LcgRandom::next()
{
    constexpr quint64 Modulus = quint64(1) << 24;
    m_state = quint32((quint64(1140671485) * m_state + 12820163) % Modulus);
    return double(m_state) / double(Modulus);
}

double ListRandom::next()
{
    if (m_values.isEmpty())
        return 0.0;
    return m_values.at(m_used++ % m_values.size());
}

RandomSource &ProgramRandom()
{
    static LcgRandom random;
    return random;
}
