#include "driver/hexception.h"

#include <utility>

int HException::m_count = 0;

HException::HException(QByteArray message) : m_message(std::move(message))
{
    ++m_count;
}
