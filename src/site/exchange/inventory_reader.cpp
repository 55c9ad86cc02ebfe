#include "site/exchange/inventory_reader.h"

#include "base/hexception.h"
#include "base/whole_file.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include <zlib.h>

namespace tavidoc {

namespace {

constexpr std::size_t s_mostBytes = 256U << 20; // of all lines
constexpr std::size_t s_longestLine = 1U << 20; // bytes
constexpr std::size_t s_mostNames = 2'000'000;  // of all inventories
constexpr std::size_t s_ranksOfOne = 8;

/// The types of objects that links lead to, in the order in which they count.
constexpr std::string_view s_types[] = {"cpp:", "c:", "py:", "std:label", "std:doc"};
constexpr std::size_t s_firstTitled = 3; // in s_types

[[noreturn]] void fail(const SiteInventory &inventory, const char *what)
{
    throw HException(QByteArray::fromStdString(inventory.file) + ": " + what);
}

/// The index in s_types of \a type; its size when links do not lead to such objects.
std::size_t rankOf(std::string_view type)
{
    const auto *const found = std::ranges::find_if(s_types, [type](std::string_view known) {
        return known.ends_with(':') ? type.starts_with(known) : type == known;
    });
    return static_cast<std::size_t>(found - std::begin(s_types));
}

/// \a address without characters that end or break an address.
std::string encodedAddress(std::string_view address)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char character : address) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > ' ' && byte != 0x7F && character != '"' && character != '<' && character != '>')
            result += character;
        else
            (result += '%').append({digits[byte >> 4U], digits[byte & 0xFU]});
    }
    return result;
}

bool isInteger(std::string_view text)
{
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// A line "NAME TYPE PRIORITY ADDRESS TITLE". Name and title may contain spaces.
class ObjectLine
{
public:
    explicit ObjectLine(std::string_view line) : m_line(line) {}

    /// False when it is not such a line. Sphinx skips these, too.
    bool parse()
    {
        for (std::size_t at = m_line.find(' '); at != std::string_view::npos; at = m_line.find(' ', at + 1)) {
            m_next = at;
            type = nextWord();
            if (at == 0 || !isInteger(nextWord()))
                continue;
            name = m_line.substr(0, m_line.find_last_not_of(' ', at) + 1);
            address = nextWord();
            title = m_next < m_line.size() ? m_line.substr(m_next + 1) : std::string_view();
            return !name.empty() && !address.empty();
        }
        return false;
    }

    std::string_view name;
    std::string_view type;
    std::string_view address;
    std::string_view title;

private:
    std::string_view nextWord()
    {
        const std::size_t begin = std::min(m_line.find_first_not_of(' ', m_next), m_line.size());
        m_next = std::min(m_line.find(' ', begin), m_line.size());
        return m_line.substr(begin, m_next - begin);
    }

    std::string_view m_line;
    std::size_t m_next = 0; ///< where the next word begins, after spaces
};

/// Adds the objects of an inventory, line by line as they are decompressed.
class InventoryReader
{
public:
    InventoryReader(ForeignNames &names, std::size_t rank, const SiteInventory &inventory)
        : m_names(names), m_rank(rank), m_inventory(inventory)
    {
    }

    void read(QByteArrayView bytes)
    {
        const std::string_view text(bytes.data(), static_cast<std::size_t>(bytes.size()));
        std::size_t at = 0;
        for (int line = 0; line < 4; ++line) {
            const std::size_t end = text.find('\n', at);
            const std::string_view comment = text.substr(std::min(at, text.size()), end - at);
            if (end == std::string_view::npos || (line == 0 && !comment.starts_with("# Sphinx inventory version 2")))
                fail(m_inventory, "not an inventory of Sphinx, version 2");
            at = end + 1;
        }
        decompress(bytes.sliced(static_cast<qsizetype>(at)));
    }

private:
    void decompress(QByteArrayView bytes)
    {
        z_stream stream = {};
        if (::inflateInit(&stream) != Z_OK)
            throw std::bad_alloc();
        const struct End
        {
            z_stream &stream;
            ~End() { ::inflateEnd(&stream); }
        } end = {stream};
        stream.next_in = const_cast<Bytef *>(reinterpret_cast<const Bytef *>(bytes.data())); // only read
        stream.avail_in = static_cast<uInt>(bytes.size());
        std::array<char, 65536> buffer;
        int status = Z_OK;
        while (status == Z_OK) {
            stream.next_out = reinterpret_cast<Bytef *>(buffer.data());
            stream.avail_out = static_cast<uInt>(buffer.size());
            status = ::inflate(&stream, Z_NO_FLUSH);
            addText({buffer.data(), buffer.size() - stream.avail_out});
        }
        if (status != Z_STREAM_END)
            fail(m_inventory, "damaged");
        addLine(m_rest);
    }

    void addText(std::string_view text)
    {
        m_size += text.size();
        for (std::size_t end = 0; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1)) {
            m_rest += text.substr(0, end);
            addLine(m_rest);
            m_rest.clear();
        }
        m_rest += text;
        if (m_size > s_mostBytes || m_rest.size() > s_longestLine || m_names.count() > s_mostNames)
            fail(m_inventory, "too large");
    }

    void addLine(std::string_view line)
    {
        ObjectLine object(line.substr(0, line.find_last_not_of("\r ") + 1));
        if (!object.parse())
            return;
        const std::size_t rank = rankOf(object.type);
        if (rank == std::size(s_types))
            return;
        std::string address(
            object.address.substr(std::min(object.address.find_first_not_of('/'), object.address.size())));
        if (address.ends_with('$'))
            address.replace(address.size() - 1, 1, object.name);
        const std::string_view title = object.title == "-" || object.title.empty() ? object.name : object.title;
        m_names.add(std::string(object.name), m_rank + rank,
                    {m_inventory.url + encodedAddress(address), std::string(rank < s_firstTitled ? "" : title)});
    }

    ForeignNames &m_names;
    std::size_t m_rank;
    const SiteInventory &m_inventory;
    std::string m_rest; ///< of a line whose end is not there yet
    std::size_t m_size = 0;
};

} // namespace

void addInventory(ForeignNames &names, std::size_t rank, const SiteInventory &inventory, QByteArrayView bytes)
{
    InventoryReader(names, rank, inventory).read(bytes);
}

ForeignNames readInventories(const std::vector<SiteInventory> &inventories)
{
    ForeignNames names;
    std::size_t rank = 0;
    for (const SiteInventory &inventory : inventories) {
        const RegularFile file(QString::fromStdString(inventory.file));
        if (static_cast<std::size_t>(file.size()) > s_mostBytes)
            fail(inventory, "too large");
        const std::optional<QByteArray> bytes = file.isOpen() ? file.allBytes() : std::nullopt;
        if (!bytes)
            fail(inventory, "cannot be read");
        addInventory(names, rank, inventory, *bytes);
        rank += s_ranksOfOne;
    }
    return names;
}

} // namespace tavidoc
