tavidoc-site build handbook.dg -o site
