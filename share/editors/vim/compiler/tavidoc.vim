" ":make" generates the pages of the current file in the directory "out" and collects errors and warnings.
if exists('current_compiler')
  finish
endif
let current_compiler = 'tavidoc'

CompilerSet makeprg=tavidoc\ -o\ out\ %:S
" Messages of the program, of a build with CMake, and messages without a location; other lines are ignored.
CompilerSet errorformat=%trror:\ docgen:\ %f:%l:\ %m,%tarning:\ docgen:\ %f:%l:\ %m,
      \%f:%l:\ %trror:\ %m,%f:%l:\ %tarning:\ %m,
      \%trror:\ docgen:\ %m,%tarning:\ docgen:\ %m,%trror:\ %m,%-G%.%#
