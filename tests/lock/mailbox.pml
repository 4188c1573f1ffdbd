/* The client's mailbox and all who work on it, one step for each access of the code: the tool
   (sender/sendMessage.cpp), its lock (qv/segment/qvSharedMemory.cpp) and a client that empties the
   queue. allOrders.py has spin look at every order of these steps, and says which of the switches
   below belong to which property. */

#ifndef SENDERS
#define SENDERS 2
#endif
#ifndef CAPACITY
#define CAPACITY 2 /* 30 in the real queue */
#endif
#define LOOKS 2    /* 26 in the real lock() */
#define CLIENT 0   /* the senders are 1, 2, 3 */

/* Messages are numbers: 0 is what a slot holds that nobody has filled, then come the senders', then
   those that wait in the queue from the beginning. Type and value of a message are its number. */
#define FIRST_WAITING (1 + SENDERS)
#define MESSAGES (FIRST_WAITING + CAPACITY)

/* The segment: its lock byte and the queue. */
byte lockByte;
byte count;
byte kind[CAPACITY];
byte type[CAPACITY];
byte value[CAPACITY];

/* What no process knows. */
byte holders;            /* living processes that have taken the lock and not given it back */
byte ended;              /* senders at their end, or dead */
bool outside;            /* a sender wrote behind the queue */
bool stored[MESSAGES];   /* its sender said so */
bool arrived[MESSAGES];  /* the client carried it out */
bool lost;               /* a message said to be stored will never arrive */
bool again;              /* the client carried out a message a second time */
bool mixed;              /* it met the type of one message and the value of another */
bool unfilled;           /* it met a slot that nobody had filled */

/* SIGKILL, for anybody at any moment. */
chan killed = [0] of { byte };

/* lock(): one step reads the byte and another writes it. */
inline look(me, seen)
{
    seen = lockByte;
    printf("%d looks: %d\n", me, seen);
#ifdef LOCK_IN_ONE_STEP
    if
    :: seen == 0 -> lockByte = 1; holds = true; holders++
    :: else
    fi
#endif
}

inline take(me)
{
#ifdef LOCK_IN_ONE_STEP
    skip
#else
    atomic { lockByte = 1; holds = true; holders++; printf("%d takes\n", me) }
#endif
}

inline giveBack(me)
{
    lockByte = 0;
    holds = false;
    holders--;
    printf("%d gives back\n", me)
}

proctype sender(byte me)
{
    byte seen, looks, slot;
    bool holds;

    {
        do
        :: atomic { look(me, seen); looks++ };
           if
           :: seen == 0 -> break
#ifdef BREAK_WAITS_WITHOUT_END
           :: else -> looks = 0
#else
           :: seen != 0 && looks < LOOKS
           :: seen != 0 && looks == LOOKS -> goto end
#endif
           fi
        od;
        looks = 0;
        take(me);

        if
        :: goto unlock /* a signal that is to end the run has come: nothing is stored */
        :: atomic { slot = count; printf("%d reads count: %d\n", me, slot) }
        fi;
#ifndef BREAK_NO_ROOM_CHECK
        if
#ifdef BREAK_FULL_KEEPS_LOCK
        :: slot >= CAPACITY -> holds = false; holders--; goto end
#else
        :: slot >= CAPACITY -> goto unlock
#endif
        :: else
        fi;
#endif
#ifdef BREAK_COUNT_READ_TWICE
        atomic { slot = count; printf("%d reads count: %d\n", me, slot) };
#endif
        atomic { count = slot + 1; printf("%d writes count: %d\n", me, slot + 1) };
#ifdef CONTENTS
        atomic { kind[slot] = 2; printf("%d writes kind[%d]: 2\n", me, slot) };
        atomic { type[slot] = me; printf("%d writes type[%d]: %d\n", me, slot, me) };
        atomic {
            value[slot] = me;
            stored[me] = true;
            printf("%d writes value[%d]: %d\n", me, slot, me)
        };
#else
        outside = (slot >= CAPACITY);
#endif
    unlock:
        atomic { slot = 0; giveBack(me) };
    end:
        atomic { seen = 0; looks = 0; ended++ }
    } unless {
        atomic {
            killed?eval(me) -> holders = holders - holds;
            seen = 0; looks = 0; slot = 0; holds = false;
            ended++;
            printf("%d dies\n", me)
        }
    }
}

/* One entry as the client has read it. */
inline carryOut(aType, aValue)
{
    if
    :: aType == 0 || aValue == 0 -> unfilled = true
    :: aType != 0 && aValue != 0 && aType != aValue -> mixed = true
    :: aType != 0 && aType == aValue -> again = again || arrived[aType]; arrived[aType] = true
    fi
}

proctype client()
{
    byte seen, readCount, i, aType;
    bool isLast, holds;

    {
#ifdef CLIENT_COMES_LATE
        ended == SENDERS;
#endif
        do
        :: isLast = (ended == SENDERS);
#ifndef CLIENT_WITHOUT_LOCK
           do
           :: atomic { look(CLIENT, seen) };
              if
              :: seen == 0 -> break
              :: else -> seen = 0
              fi
           od;
           take(CLIENT);
#endif
#ifdef CONTENTS
           atomic { readCount = count; printf("0 reads count: %d\n", readCount) };
           do
           :: i < readCount && i < CAPACITY ->
              /* That an entry's kind is read as well changes nothing. */
              atomic { aType = type[i]; printf("0 reads type[%d]: %d\n", i, aType) };
              atomic {
                  printf("0 reads value[%d]: %d\n", i, value[i]);
                  carryOut(aType, value[i]);
                  aType = 0;
                  i++
              }
           :: else -> break
           od;
           atomic { readCount = 0; i = 0; count = 0; printf("0 writes count: 0\n") };
#else
           count = 0;
#endif
#ifndef CLIENT_WITHOUT_LOCK
           atomic { giveBack(CLIENT) };
#endif
           if
           :: isLast -> break
           :: else
           fi
        od;
        atomic {
            i = 1;
            do
            :: i < MESSAGES -> lost = lost || (stored[i] && !arrived[i]); i++
            :: else -> break
            od;
            i = 0
        }
    } unless {
        atomic {
            killed?eval(CLIENT) -> holders = holders - holds;
            seen = 0; readCount = 0; i = 0; aType = 0; isLast = false; holds = false;
            printf("0 dies\n")
        }
    }
}

proctype death()
{
    do
    :: killed!0
    :: killed!1
    :: killed!2
#if SENDERS == 3
    :: killed!3
#endif
    :: break
    od
}

init
{
    byte i;
    atomic {
        /* A queue of any length, up to a full one. */
        do
        :: count < CAPACITY ->
#ifdef CONTENTS
           kind[count] = 2;
           type[count] = FIRST_WAITING + count;
           value[count] = FIRST_WAITING + count;
           stored[FIRST_WAITING + count] = true;
#endif
           count++
        :: break
        od;
        printf("begin %d\n", count);
        i = 1;
        do
        :: i <= SENDERS -> run sender(i); i++
        :: else -> break
        od;
        i = 0;
        run client();
#ifdef DEATHS
        run death()
#endif
    }
}

/* The properties. All but the first hold at every moment, or are broken at one. */

/* Every sender comes to its end, whoever holds the lock and whoever died with it. */
#define ends (ended == SENDERS)
/* No entry outside the queue. */
#define inside (!outside)
/* No count above the capacity. */
#define bounded (count <= CAPACITY)
/* The lock is taken only as long as a living process holds it. */
#define freed (lockByte == 0 || holders > 0)
/* One holder at a time. */
#define apart (holders <= 1)
/* What was stored arrives. */
#define kept (!lost)
/* It arrives once. */
#define once (!again)
/* It arrives with its own type and its own value. */
#define whole (!mixed)
/* No entry is read ahead of its being written. */
#define written (!unfilled)
