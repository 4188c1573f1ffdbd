/* The system calls of `qvNodeDispatch abort`, made without any C library: the cost of a run before a
   single line of ours, and so the floor of the tool's whole-process time. It checks nothing and is no
   sender to use. For Linux on x86-64 and aarch64. */
#include <asm/unistd.h>

typedef unsigned long Word;

static Word ask(Word number, Word first, Word second, Word third, Word fourth)
{
#ifdef __x86_64__
    register Word r10 __asm__("r10") = fourth;
    Word result;
    __asm__ volatile("syscall"
                     : "=a"(result)
                     : "0"(number), "D"(first), "S"(second), "d"(third), "r"(r10)
                     : "rcx", "r11", "memory");
    return result;
#elif defined __aarch64__
    register Word x8 __asm__("x8") = number;
    register Word x0 __asm__("x0") = first;
    register Word x1 __asm__("x1") = second;
    register Word x2 __asm__("x2") = third;
    register Word x3 __asm__("x3") = fourth;
    __asm__ volatile("svc 0" : "+r"(x0) : "r"(x8), "r"(x1), "r"(x2), "r"(x3) : "memory");
    return x0;
#else
#error "a system call is not written for this processor"
#endif
}

enum
{
    isTerminal = 0x5401, /* TCGETS */
    block = 0,
    setMask = 2,
    statusQuery = 2,
    maskSize = 8,
    clientKey = 0x4EFCFF,
    recordOffset = 8
};

/* The kernel jumps here without a call, so the stack is not aligned as functions on x86-64
   expect. */
#ifdef __x86_64__
__attribute__((force_align_arg_pointer))
#endif
__attribute__((noreturn)) void
_start(void)
{
    unsigned char room[256];
    Word const all = ~(Word)0;
    Word previous = 0;
    Word pending = 0;
    ask(__NR_ioctl, 1, isTerminal, (Word)room, 0);
    ask(__NR_rt_sigprocmask, block, (Word)&all, (Word)&previous, maskSize);
    Word id = ask(__NR_shmget, clientKey, 0, 0660, 0);
    Word const address = ask(__NR_shmat, id, 0, 0, 0);
    if (address > -(Word)4096)
        ask(__NR_exit_group, 1, 0, 0, 0);
    unsigned char volatile* const base = (unsigned char volatile*)address;
    ask(__NR_shmctl, id, statusQuery, (Word)room, 0);
    base[0] = 1;
    ask(__NR_rt_sigpending, (Word)&pending, maskSize, 0, 0);
    unsigned char const count = base[recordOffset + 2001];
    base[recordOffset + 2001] = (unsigned char)(count + 1);
    base[recordOffset + 2002 + count] = 2;
    base[recordOffset + 2032 + count] = 2;
    *(unsigned short volatile*)(base + recordOffset + 2062 + 2 * count) = 1;
    base[0] = 0;
    ask(__NR_shmdt, address, 0, 0, 0);
    id = ask(__NR_shmget, clientKey, 0, 0444, 0);
    ask(__NR_shmctl, id, statusQuery, (Word)room, 0);
    ask(__NR_rt_sigpending, (Word)&pending, maskSize, 0, 0);
    ask(__NR_rt_sigprocmask, setMask, (Word)&previous, 0, maskSize);
    static char const text[] = "Command send.\n\n";
    ask(__NR_write, 1, (Word)text, sizeof text - 1, 0);
    ask(__NR_exit_group, 0, 0, 0, 0);
    __builtin_unreachable();
}
