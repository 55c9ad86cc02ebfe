#include "base/hexception.h"

#include <utility>

namespace tavidoc {

int HException::m_count = 0;

HException::HException(QByteArray message) : m_message(std::move(message))
{
    ++m_count;
}

} // namespace tavidoc
