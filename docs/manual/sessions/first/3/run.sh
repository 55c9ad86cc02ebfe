tavidoc -v -o plain kettle.dg
