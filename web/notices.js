// The page's own messages: the host's `error` replies in a notice that goes away by itself, the
// "Disconnected" banner while the WebSocket is closed, and help pages opened in a new tab.

const NOTICE_MS = 6000;

export function showNotices(connection) {
    const notices = document.getElementById('notice');
    const banner = document.getElementById('disconnected');

    connection.onMessage('error', (message) => {
        const item = document.createElement('div');
        item.className = 'notice-item';
        item.setAttribute('role', 'status');
        item.textContent = message.message || 'The host could not do that.';
        notices.append(item);
        setTimeout(() => item.remove(), NOTICE_MS);
    });
    connection.onMessage('help', (message) => {
        window.open(message.url, '_blank');
    });
    connection.onStatus((connected) => {
        banner.hidden = connected;
    });
}
