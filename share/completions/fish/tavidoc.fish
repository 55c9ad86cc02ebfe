complete -c tavidoc -s o -x -a '(__fish_complete_directories)' -d 'specify output directory'
complete -c tavidoc -s v -d 'verbose output'
complete -c tavidoc -k -x -a '(__fish_complete_suffix .dg .h)'
