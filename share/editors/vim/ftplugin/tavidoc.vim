" Settings for tavidoc's markup.
if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal commentstring=%\ %s comments=:%
setlocal include=^\\s*\\\\include suffixesadd=.dg
compiler tavidoc
let b:undo_ftplugin = 'setlocal commentstring< comments< include< suffixesadd<'
