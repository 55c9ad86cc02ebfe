tavidoc-site build kettle.dg -o site
