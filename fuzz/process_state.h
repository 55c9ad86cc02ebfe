#pragma once

/// Resets the state that documents of one process deliberately pass on: the order of groups, the tag of the next
/// paragraph, and the state in which an XML listing ends.
void settleProcessState();
