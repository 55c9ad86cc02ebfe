#include "site/render/body_edits.h"

#include <algorithm>

namespace tavidoc {

std::string edited(std::string_view body, BodyEdits edits)
{
    std::ranges::stable_sort(edits, {}, &BodyEdit::offset);
    std::string html;
    html.reserve(body.size() + 64 * edits.size());
    std::size_t done = 0;
    for (const BodyEdit &edit : edits) {
        if (edit.offset < done || edit.offset > body.size() || edit.removed > body.size() - edit.offset)
            continue;
        html += body.substr(done, edit.offset - done);
        html += edit.inserted;
        done = edit.offset + edit.removed;
    }
    return html.append(body.substr(done));
}

} // namespace tavidoc
