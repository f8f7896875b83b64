#pragma once
#pragma GCC system_header

#include <bitset>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <numeric>
#include <unistd.h>
#include <vector>

/// What woven sources ask at each place where they can be changed. All changes are in one build;
/// the environment variable TALVIX_MUTANT picks the one that is in force, and with TALVIX_MUTANT_RECORD=FILE
/// the numbers of all places that a program comes to are appended to that file.
namespace talvix {

class Mutation
{
public:
    static Mutation &instance()
    {
        static Mutation mutation;
        return mutation;
    }

    bool inForce(int number)
    {
        if (m_record >= 0)
            record(number);
        return number == m_number;
    }

private:
    Mutation()
    {
        if (const char *number = std::getenv("TALVIX_MUTANT"))
            m_number = std::atoi(number);
        if (const char *file = std::getenv("TALVIX_MUTANT_RECORD"))
            m_record = open(file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    }

    // Written at once: a program that crashes has told all the same where it came.
    void record(int number)
    {
        const auto place = static_cast<std::size_t>(number);
        if (place >= m_seen.size() || m_seen[place])
            return;
        m_seen[place] = true;
        char line[16];
        const int length = std::snprintf(line, sizeof line, "%d\n", number);
        [[maybe_unused]] const auto written = write(m_record, line, static_cast<std::size_t>(length));
    }

    int m_number = -1;
    int m_record = -1;
    std::bitset<65536> m_seen;
};

/// Where the compiler needs a constant it gets the original.
constexpr bool mutant(int number)
{
    return __builtin_is_constant_evaluated() ? false : Mutation::instance().inForce(number);
}

template <typename Condition>
constexpr bool flip(int number, const Condition &condition)
{
    return mutant(number) != static_cast<bool>(condition);
}

/// Two numbers, for one more and for one less.
template <typename Number>
constexpr Number shifted(int number, Number value)
{
    const bool more = mutant(number);
    const bool less = mutant(number + 1);
    return static_cast<Number>(more ? value + 1 : less ? value - 1 : value);
}

#define TALVIX_OPERATION(name, original, changed)                                                            \
    template <typename Left, typename Right>                                                                 \
    constexpr auto name(int number, const Left &left, const Right &right)                                    \
    {                                                                                                        \
        return mutant(number) ? (left changed right) : (left original right);                                \
    }
TALVIX_OPERATION(less, <, <=)
TALVIX_OPERATION(lessEqual, <=, <)
TALVIX_OPERATION(greater, >, >=)
TALVIX_OPERATION(greaterEqual, >=, >)
TALVIX_OPERATION(equal, ==, !=)
TALVIX_OPERATION(notEqual, !=, ==)
TALVIX_OPERATION(plus, +, -)
TALVIX_OPERATION(minus, -, +)
TALVIX_OPERATION(times, *, /)
TALVIX_OPERATION(over, /, *)
#undef TALVIX_OPERATION

template <typename Number>
Number &increment(int number, Number &value)
{
    return mutant(number) ? --value : ++value;
}

template <typename Number>
Number &decrement(int number, Number &value)
{
    return mutant(number) ? ++value : --value;
}

/// Positions 0 to count - 1; while \a number + i is in force, i and i + 1 change places.
inline std::vector<int> order(int number, std::initializer_list<bool> swappable)
{
    std::vector<int> positions(swappable.size() + 1);
    std::iota(positions.begin(), positions.end(), 0);
    std::size_t place = 0;
    for (const bool canSwap : swappable) {
        if (canSwap && mutant(number++))
            std::swap(positions[place], positions[place + 1]);
        ++place;
    }
    return positions;
}

} // namespace talvix
