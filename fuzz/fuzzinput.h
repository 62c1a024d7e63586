#pragma once
// The fuzzer's bytes read as a stream of small numbers; past the end every read is 0.
#include <cstddef>
#include <cstdint>

class FuzzInput
{
public:
    FuzzInput(const uint8_t *data, size_t size) : m_data(data), m_size(size) {}
    bool empty() const { return m_pos >= m_size; }
    uint8_t next() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    int next16()
    {
        const int low = next();
        return low | next() << 8;
    }

private:
    const uint8_t *m_data;
    size_t m_size;
    size_t m_pos = 0;
};
