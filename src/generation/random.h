#pragma once
#include <QList>
#include <QtGlobal>

// The uniform source of the generators, on [0, 1). One source serves a whole run of the program and every
// phase draws from it in turn, so the order of the draws is part of the result.
class RandomSource
{
public:
    virtual ~RandomSource() = default;
    virtual double next() = 0;

    // floor(count * r) + 1 in double precision: 1 to count; 1 when count is 0.
    int draw(int count) { return int(double(count) * next()) + 1; }
};

// The program's own generator: never seeded, so every start of the program draws the same sequence.
// A 24-bit linear congruential generator x = (1140671485 x + 12820163) mod 2^24 from x = 327680.
class LcgRandom final : public RandomSource
{
public:
    static constexpr quint32 Start = 327680;
    double next() override;

private:
    quint32 m_state = Start;
};

// The one generator of this run of the program, shared by every screen that generates.
RandomSource &ProgramRandom();

// A fixed list of draws, repeated when it runs out: lets a test choose the sequence.
class ListRandom final : public RandomSource
{
public:
    explicit ListRandom(QList<double> values) : m_values(std::move(values)) {}
    double next() override;
    int used() const { return m_used; }

private:
    QList<double> m_values;
    int m_used = 0;
};
