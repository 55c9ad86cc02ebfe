#include "site/record/field_writer.h"

#include <QCborStreamWriter>

#include <utility>

namespace tavidoc {

QByteArray FieldWriter::takeBytes()
{
    QByteArray bytes;
    QCborStreamWriter writer(&bytes);
    writer.startArray(2);
    for (std::string *part : {&m_numbers, &m_texts}) {
        writer.appendByteString(part->data(), static_cast<qsizetype>(part->size()));
        part->clear();
    }
    writer.endArray();
    return bytes;
}

} // namespace tavidoc
