tavidoc-site compile handbook.dg -o handbook.tdr
tavidoc-site compile timer.h --folder api -o timer.tdr
tavidoc-site link site.toml handbook.tdr timer.tdr -o LINK
tavidoc-site render handbook.tdr --link LINK -o pages
tavidoc-site render timer.tdr --link LINK -o pages
tavidoc-site render --link LINK -o pages
