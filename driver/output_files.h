#pragma once

#include "docgen/output_record.h"

#include <functional>
#include <span>

/// Writes \a pages, which are borrowed and not null, in their order. Throws what
/// writeOutputFile() throws for the first that cannot be written. \a announce is called with the
/// name of each before it is written; then no page after the one that failed is written. Without
/// it, many pages are written by two threads, and pages after the one that failed may be.
void writeOutputFiles(std::span<const OutputRecord *const> pages,
                      const std::function<void(const QString &)> &announce = {});
