#pragma once

/// The active mutant, from the environment variable TAVIDOC_MUTANT; -1 for none. Child processes inherit it.
extern int tavidocActiveMutant;
/// One byte for each mutant, 1 if it was reached. Mapped from the file named by TAVIDOC_MUTANTS_REACHED, so that it
/// survives a crash of the process.
extern unsigned char *tavidocReachedMutants;

/// Returns whether \a mutant is active, and records that it was reached.
inline bool tavidocMutant(int mutant)
{
    tavidocReachedMutants[mutant] = 1;
    return tavidocActiveMutant == mutant;
}
