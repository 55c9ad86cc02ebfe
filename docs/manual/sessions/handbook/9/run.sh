mkdir help
tavidoc-site export qhp -o help/kettle.qhp
