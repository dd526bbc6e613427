" Vim compiler file
" Compiler: vemo-boardspec, on the board file in the current buffer
" Copy it to ~/.vim/compiler, then say ":compiler vemo-boardspec" and ":make".

if exists('current_compiler')
  finish
endif
let current_compiler = 'vemo-boardspec'

CompilerSet makeprg=vemo-boardspec\ %:S\ name

" Of a fault with a place, two lines: the place and the message. The closing "Failed to load" ends
" it; where that line stands without one, it is what there is to say.
CompilerSet errorformat=%EError\ in\ '%f'\\,\ line\ %l,
      \%EError\ in\ '%f':,
      \%EXML\ error:\ %m\\,\ Error=%.%#\ Line\ number=%l%.%#,
      \%ZError:\ Failed\ to\ load\ xml\ file:\ %f,
      \%EError:\ Failed\ to\ load\ xml\ file:\ %f,
      \%+ZMake\ sure\ %.%#,
      \%GError:\ %m,
      \%-GERROR\ FOUND:%.%#,
      \%f:%l:\ %m,
      \%C%m
