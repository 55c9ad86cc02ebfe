make
make
