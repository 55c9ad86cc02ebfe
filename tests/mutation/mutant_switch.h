#pragma once

/// The mutant that is switched on, from the environment variable TAVIDOC_MUTANT; -1 for none. Child processes inherit it.
extern int tavidocActiveMutant;
/// One byte for each mutant, not 0 once its place was reached. Shared with the caller through the file that
/// TAVIDOC_MUTANTS_REACHED names, so that it survives whatever end a process comes to.
extern unsigned char *tavidocReachedMutants;

/// True when \a mutant is switched on.
inline bool tavidocMutant(int mutant)
{
    tavidocReachedMutants[mutant] = 1;
    return tavidocActiveMutant == mutant;
}
