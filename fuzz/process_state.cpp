#include "fuzz/process_state.h"

#include "codeedit/listing.h"
#include "fuzz/promise.h"
#include "markup/shared_tables.h"

using namespace tavidoc;

void settleProcessState()
{
    SharedTables::requiredOrder.clear();
    SharedTables::paraStyle = "p";
    // Any open XML construct ends on one of these lines.
    std::string html;
    appendListing(html, "-->\n]]>\n?>\n\">\n'>\n]>", "xml");
    html.clear();
    appendListing(html, "x", "xml");
    promiseEqual(html, "<span class=\"zkt-code-text\">x</span>\n", "an XML listing can be ended");
}
