#include "yld_HistoryOutput.h"

#include "platform/sto/sto_History.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"

#include <algorithm>
#include <vector>

namespace {

enum MessageEnm
{
    UNEQUAL_STORED,
    UNEQUAL_GIVEN,
    ORPHAN,
    WIDTH
};

constexpr const char* s_messages[] = {"History time and data array of unequal length.",
                                      "Data sequences added to a history variable should be of equal length.",
                                      "Cannot add data to an orphan history object. The object was likely created "
                                      "using the getSubset method, or by a C++ "
                                      "user who did not use the reference to the history objects.",
                                      "Data added to a history variable should be of width 2"};

// Pairs are read in pieces of this size where they are looked at one by one.
constexpr long long pieceRows = 8192;

// A time without its value would make the whole curve unreadable, so a value that fails takes its time along.
template<class T> void appendPair(sto_HistoryClock& clock, const sto_HistoryFloat& values, T time, T value)
{
    clock.appendTimeValueNoBufferSeq(time);
    try {
        values.appendDataNoBufferSeq(value);
    } catch (...) {
        clock.dropLastTime();
        throw;
    }
}

yld_Sequence<float> pairOf(float time, float value)
{
    const float pair[] = {time, value};
    return yld_Sequence<float>(pair, 2);
}

} // namespace

yld_HistoryOutput::yld_HistoryOutput() = default;

yld_HistoryOutput::yld_HistoryOutput(const yld_String& name, const yld_String& description,
                                     yld_Enum::yld_DataTypeEnum type, const yld_Sequence<yld_Sequence<float>>& data)
    : m_name(name), m_description(description), m_type(type), m_clock(new sto_HistoryClock),
      m_values(new sto_HistoryFloat), m_data(data)
{
}

yld_HistoryOutput::yld_HistoryOutput(const yld_String& name, const yld_String& description,
                                     yld_Enum::yld_DataTypeEnum type, const sto_HistoryClock& clock,
                                     const sto_HistoryFloat& values)
    : m_name(name), m_description(description), m_type(type), m_clock(new sto_HistoryClock(clock)),
      m_values(new sto_HistoryFloat(values)), m_attached(true)
{
}

yld_HistoryOutput::yld_HistoryOutput(const yld_HistoryOutput&) = default;
yld_HistoryOutput& yld_HistoryOutput::operator=(const yld_HistoryOutput&) = default;
yld_HistoryOutput::~yld_HistoryOutput() = default;

bool yld_HistoryOutput::isWhole() const
{
    if (m_clock->numTimes() == m_values->numValues()) return true;
    prg_WIPBase::Warning(msg_Format(s_messages[UNEQUAL_STORED]));
    return false;
}

yld_Sequence<yld_Sequence<float>> yld_HistoryOutput::column(int column) const
{
    return yld_guard([&] {
        yld_Sequence<yld_Sequence<float>> pairs;
        if (!isWhole()) return pairs;
        const sto_HistoryArray<double> times = m_clock->timeArray();
        const sto_HistoryArray<float> values = m_values->dataArray();
        if (column >= values.columns()) return pairs;
        for (long long i = 0; i < values.rows(); ++i) {
            pairs.append(pairOf(static_cast<float>(times[i]), values[i * values.columns() + column]));
        }
        return pairs;
    });
}

yld_Sequence<yld_Sequence<float>> yld_HistoryOutput::data() const { return m_attached ? column(0) : m_data; }

yld_Sequence<yld_Sequence<float>> yld_HistoryOutput::conjugateData() const
{
    return m_attached ? column(1) : m_conjugate;
}

void yld_HistoryOutput::requireAttached() const
{
    if (!m_attached) yld_raise(s_messages[ORPHAN]);
}

void yld_HistoryOutput::addData(const yld_Sequence<float>& times, const yld_Sequence<float>& values)
{
    if (times.size() != values.size()) yld_raise(s_messages[UNEQUAL_GIVEN]);
    requireAttached();
    yld_guard([&] {
        for (int i = 0; i < times.size(); ++i) appendPair(*m_clock, *m_values, times[i], values[i]);
    });
}

void yld_HistoryOutput::addData(double time, double value)
{
    requireAttached();
    yld_guard([&] { appendPair(*m_clock, *m_values, time, value); });
}

void yld_HistoryOutput::addData(const yld_Sequence<yld_Sequence<float>>& pairs)
{
    requireAttached();
    yld_guard([&] {
        for (int i = 0; i < pairs.size(); ++i) {
            if (pairs[i].size() != 2) yld_raise(s_messages[WIDTH]);
            appendPair(*m_clock, *m_values, pairs[i][0], pairs[i][1]);
        }
    });
}

long long yld_HistoryOutput::dataSize() const
{
    if (!m_attached) return m_data.size();
    return yld_guard([this] { return isWhole() ? m_values->numValues() : 0LL; });
}

bool yld_HistoryOutput::hasConjugate() const
{
    if (!m_attached) return !m_conjugate.isEmpty();
    return yld_guard([this] { return m_values->numColumns() > 1; });
}

void yld_HistoryOutput::readData(long long from, long long count, double* times, float* values, float* conjugate) const
{
    if (from < 0 || count < 0 || from > dataSize() - count) yld_raise("Index out of range.");
    if (!m_attached) {
        for (long long i = 0; i < count; ++i) {
            const int place = static_cast<int>(from + i);
            if (times) times[i] = static_cast<double>(m_data[place][0]);
            if (values) values[i] = m_data[place][1];
            if (conjugate) conjugate[i] = place < m_conjugate.size() ? m_conjugate[place][1] : 0.0F;
        }
        return;
    }
    yld_guard([&] {
        if (times) m_clock->readTimes(from, count, times);
        if (m_values->numColumns() == 1) {
            if (values) m_values->readData(from, count, values);
            if (conjugate) std::fill(conjugate, conjugate + count, 0.0F);
            return;
        }
        std::vector<float> rows(static_cast<std::size_t>(2 * std::min(count, pieceRows)));
        for (long long done = 0; done < count; done += pieceRows) {
            const long long piece = std::min(pieceRows, count - done);
            m_values->readData(from + done, piece, rows.data());
            for (long long i = 0; i < piece; ++i) {
                if (values) values[done + i] = rows[static_cast<std::size_t>(2 * i)];
                if (conjugate) conjugate[done + i] = rows[static_cast<std::size_t>(2 * i + 1)];
            }
        }
    });
}

yld_HistoryOutput yld_HistoryOutput::subset(double start, const double* end) const
{
    yld_Sequence<yld_Sequence<float>> kept;
    const long long count = dataSize();
    std::vector<double> times(static_cast<std::size_t>(std::min(count, pieceRows)));
    std::vector<float> values(times.size());
    for (long long from = 0; from < count; from += pieceRows) {
        const long long piece = std::min(pieceRows, count - from);
        readData(from, piece, times.data(), values.data());
        for (std::size_t i = 0; i < static_cast<std::size_t>(piece); ++i) {
            // The time that a client sees is the one that counts.
            const auto time = static_cast<float>(times[i]);
            if (!(static_cast<double>(time) > start) || (end && !(static_cast<double>(time) < *end))) continue;
            kept.append(pairOf(time, values[i]));
        }
    }
    return yld_HistoryOutput(m_name, m_description, m_type, kept);
}

yld_HistoryOutput yld_HistoryOutput::getSubset(double start) const { return subset(start, nullptr); }

yld_HistoryOutput yld_HistoryOutput::getSubset(double start, double end) const { return subset(start, &end); }
