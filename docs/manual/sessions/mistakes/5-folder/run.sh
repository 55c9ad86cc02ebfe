tavidoc -v -o plain book/kettle.dg
(cd book; tavidoc -v -o ../plain kettle.dg)
tavidoc-site build book/kettle.dg -o site
