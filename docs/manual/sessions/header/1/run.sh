tavidoc -v -o out kettle.h
