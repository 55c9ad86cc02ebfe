/* Declarators of every shape. tests/sourcebrowser/declare-again compiles them again as they are rendered. */
#include <stddef.h>

#define API extern __attribute__((visibility("default")))
#define CALL
#define BOOL int
#define WIDE long long
#define LINKED(type) struct type
#define EXTERN(type) extern type
#define ALIAS(name, arguments, other) name arguments __asm__(#other)
#define NONNULL(...) __attribute__((nonnull(__VA_ARGS__)))
#define OLD(arguments) arguments
#define PACKED(size) __attribute__((aligned(size)))

struct point
{
    int x, y;
};
typedef struct point point;
enum colour
{
    RED,
    GREEN = 3,
    BLUE = RED | 4
};

typedef unsigned long long word, *words, table[4][2];
typedef int (*handler)(int, const char *);
typedef int function(void);
typedef char *(*(*factory)(int depth, ...))[3];
typedef const struct point *const *volatile chain;
typedef void (*handlers[2])(handler, function *);

API int plain(void) NONNULL();
API const char *CALL text_of(const enum colour colour, char text[], size_t size);
point by_value(point first, struct point second);
int old_names(int[], int[3], int[const 2][3], char *const *restrict names);
void callbacks(int (*compare)(const void *, const void *), void (*)(void), handler handlers[2]);
char *(*returns_array_pointer(int a, int (*use)(void *)))[4];
void (*returns_function_pointer(int number, void (*next)(int)))(int);
int(parenthesised)(int(value));
static inline int defined(int a, int b)
{
    return a < b ? (a >> 1) : b;
}
__attribute__((noreturn)) void leave(int status, ...);
unsigned volatile long int static_order(signed char a, long long unsigned b, double _Complex c);

extern int number, *pointer, numbers[3], (*array_pointer)[5];
extern int (*(*pointers_to_functions[3])(void))(int);
extern const char *const names[], *volatile current;
extern int(in_parentheses), *(pointer_in_parentheses), ((twice))[2];
int *(function_in_parentheses(int first));
void takes_functions(int compare(const void *, const void *), struct point origin(void), void (*then)(word end));
extern enum colour colours[BLUE + 1];

struct flags
{
    word(narrow) : 3;
    const word(wide) : 5, (rest) : 2;
};
void takes_old_functions(int *first OLD((int, char *)), word second OLD((void)), point *(*third)OLD((point)));

// Names that C++ reserves, and types that macros make.
int swap(int *old, int *new), lookup(enum colour class, int private, void (*delete)(int this));
typedef unsigned char bool;
bool explicit(bool mutable, char *template[2]);
extern int new, *export, typename[3];
typedef LINKED(point) linked;
typedef unsigned WIDE wide;
EXTERN(BOOL) made(linked *export, LINKED(point) * second, unsigned WIDE CALL third);
struct PACKED(8) tagged *tag_after_macro(struct point value);
API BOOL CALL converted(const LINKED(point) CALL *first);
extern char *ALIAS(renamed, (int a, ...), other_name);
