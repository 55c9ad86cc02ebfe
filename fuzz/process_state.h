#pragma once

/// Puts back what documents of one process hand on to each other on purpose: the order of groups, the tag of the next
/// paragraph, and what an XML listing ends in.
void settleProcessState();
