tavidoc-site build handbook.dg timer.h -o site
