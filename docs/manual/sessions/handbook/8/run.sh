tavidoc-site single -o manual.htm
