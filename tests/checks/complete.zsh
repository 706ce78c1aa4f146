# What zsh makes of each line of a file when Tab is pressed behind it, in a shell such as a user's.
#
#   zsh -f complete.zsh FOLDER LINES MADE    FOLDER: that of the completions; MADE: the file for the lines as they are then
zmodload zsh/zpty
export FOLDER=$1 LINES_FILE=$2 MADE=$3

cat >$MADE.shell <<'END'
fpath=($FOLDER $fpath)
autoload -Uz compinit
compinit -u -D
unsetopt beep auto_menu
complete-lines() {
    local line
    for line in ${(f)"$(<$LINES_FILE)"}; do
        BUFFER=$line
        CURSOR=$#BUFFER
        zle complete-word
        print -r -- $BUFFER >>$MADE
    done
    exit
}
zle -N complete-lines
bindkey '^T' complete-lines
END

zpty shell zsh -f -i
zpty -w shell "source ${(q)MADE}.shell"
zpty -w -n shell $'\x14'
while zpty -r shell said; do :; done
rm -f $MADE.shell
