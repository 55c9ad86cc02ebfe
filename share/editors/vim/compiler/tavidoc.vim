" ":make" documents the file at hand into the directory "out" and gathers what is wrong with it.
if exists('current_compiler')
  finish
endif
let current_compiler = 'tavidoc'

CompilerSet makeprg=tavidoc\ -o\ out\ %:S
" The program's own messages, those of a build with CMake, those without a place; nothing else.
CompilerSet errorformat=%trror:\ docgen:\ %f:%l:\ %m,%tarning:\ docgen:\ %f:%l:\ %m,
      \%f:%l:\ %trror:\ %m,%f:%l:\ %tarning:\ %m,
      \%trror:\ docgen:\ %m,%tarning:\ docgen:\ %m,%trror:\ %m,%-G%.%#
