autocmd BufNewFile,BufRead *.dg setfiletype tavidoc
